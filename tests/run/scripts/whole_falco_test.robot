# A student takes the full FALCO exam: fifty questions, some answered, some left, a way back in
# between, a look at the answer page, the score at the end. What the questions are does not matter.
distribution
start 46000
click Welcome Image4 0
click pick_a_quiz which_quiz 3
type pick_a_quiz txtstudentname 0 "Ada L"
# The answer page is asked for below, when its time has come.
click pick_a_quiz answer_when_wrong
click pick_a_quiz Command1
show screen quest
show screen pick_a_quiz
show run
show page

# Questions 1 to 10, all right.
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
show control quest score
show control quest Percent_Right
show page

# Back twice and on again: the two count once more, and only once in the score.
click quest cmd_buttons 1
show run
click quest cmd_buttons 1
show run
answer_rightly
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
show control quest score

# Questions 11 to 20 are passed as they come.
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
show control quest score
show page

# Question 21 with its answer page, whatever its verdict.
click quest menu_showwrong
click quest menu_showright
answer_rightly
click quest cmd_buttons 0
show screen theanswer
show page
click theanswer Closeb
click quest menu_showwrong
click quest menu_showright
show run

# A larger font shows question 22 anew.
click quest menusize 4
show run
show page

# Questions 22 to 50, every other one answered.
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run
click quest cmd_buttons 0
show run
answer_rightly
click quest cmd_buttons 0
show run

show screen finalscore
show screen quest
show control finalscore per
show control finalscore rig
show control finalscore tot
show messages
show settings
show files
show file "46000.ADA L.results"
show file "history.46000.ADA L.htm"
