// The page of a question, from its header to its last tag.
#include "run/question_page.h"

#include "golden.h"
#include "platform/values/text.h"
#include "question_test.h"

namespace practice {
namespace {

constexpr std::string_view notice =
    "<br><center><b>Please Scroll Down to See Exhibits and/or Diagrams";
constexpr std::string_view exhibit_link = "Exhibit #  1 Click Here</a>";

class QuestionPage : public QuestionTest {
 protected:
  void SetUp() override {
    QuestionTest::SetUp();
    robot.world.files.write(
        "\\program\\q_bottom.ini",
        "<html>\r\n<body>\r\n<form name=\"frm\" onsubmit=\"return false\">\r\n");
    options().show_answer_count = 1;
  }

  static int count(std::string_view text, std::string_view what) {
    int found = 0;
    for (auto place = text.find(what); place != std::string_view::npos;
         place = text.find(what, place + 1)) {
      ++found;
    }
    return found;
  }
};

// ---- Whole pages

TEST_F(QuestionPage, OneBestAnswer) {
  Question question;
  question.question_text = "Which protocol floods link states?";
  question.question_type = "single_answer";
  question.answers[1] = "RIP";
  question.answers[2] = "OSPF";
  question.answers[3] = "IGRP";
  question.answers[4] = "BGP &gt; 3";
  question.answer_correct[2] = 1;
  question.answer_chosen[2] = 1;
  show(question);
  EXPECT_TRUE(is_golden(html(), "radio.html"));
}

TEST_F(QuestionPage, SeveralBestAnswersWithDiagrams) {
  Question question;
  question.question_text = "Which two are distance vector protocols?<br>(Mind the drawing.)";
  question.question_type = "multi_answer";
  question.answers[1] = "RIP";
  question.answers[2] = "OSPF";
  question.answers[3] = "IGRP";
  question.answer_correct[1] = 1;
  question.answer_correct[3] = 1;
  question.answer_chosen[1] = 1;
  question.answer_chosen[3] = 1;
  question.diagrams[1] = "q16.jpg";
  question.diagrams[3] = "q16b.jpg";
  show(question, 2);
  EXPECT_TRUE(is_golden(html(), "check_box.html"));
}

TEST_F(QuestionPage, ATypedAnswerWithATextExhibitAndADiagram) {
  Question question = fill_in({"show ip route"});
  question.question_text = "Which command shows the routes?";
  question.typed_answer = "\"show ip route\" isn't <hard>";
  question.exhibits[1] = "q31.txt";
  question.diagrams[2] = "q31.jpg";
  show(question, 3);
  EXPECT_TRUE(is_golden(html(), "fill_in.html"));
}

TEST_F(QuestionPage, DragAndDropWithALinkToTheTutor) {
  options().font_size = 14;
  options().font_name = "Arial";
  options().embed_media = 0;
  Question question = exercise("xxxdnd");
  question.question_text = "Put the layers in order.";
  question.tutor_file = "layers";
  show(question, 4);
  EXPECT_TRUE(is_golden(html(), "drag_drop.html"));
}

TEST_F(QuestionPage, ASimulatorWithTheTutorsPlayer) {
  options().font_size = 20;
  options().font_name = "Arial";
  options().embed_media = 1;
  Question question = exercise("xxsim", "vlan2=created");
  question.question_text = "Create VLAN 2.";
  question.exhibits[1] = "topology.gif";
  question.exhibits[2] = "2950";
  question.diagrams[2] = "2950";
  question.diagrams[3] = "lab.jpg";
  question.tutor_file = "vlans.mp3";
  show(question, 50);
  EXPECT_TRUE(is_golden(html(), "simulator.html"));
}

TEST_F(QuestionPage, TheScriptsInFrontOfEveryPage) {
  EXPECT_TRUE(is_golden(page_guard_scripts(), "guard_scripts.html"));
}

// ---- Header

TEST_F(QuestionPage, TheHeaderHasALineEndInFrontOfEachLineAndNoneBehind) {
  const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                       {"<html>", "\r\n<html>"},
                                                       {"<html>\r\n", "\r\n<html>"},
                                                       {"<html>\n<body>\n", "\r\n<html>\r\n<body>"},
                                                       {"a\r\n\r\nb\r\n", "\r\na\r\n\r\nb"}};
  for (const auto& [content, header] : cases) {
    robot.world.files.write("\\program\\q_bottom.ini", content);
    EXPECT_EQ(read_page_header(robot.program()), header) << content;
  }
}

TEST_F(QuestionPage, WithoutTheHeaderFileThePageStillComes) {
  robot.world.files.remove("\\program\\q_bottom.ini");
  robot.world.files.remove("error.log");
  show(choice({1}));
  EXPECT_TRUE(html().starts_with("\r\n<style>\r\n"));
  EXPECT_NE(robot.page().input("radio1", 3), nullptr);
  EXPECT_FALSE(robot.world.files.exists("error.log"));
}

TEST_F(QuestionPage, TheHeaderFileIsReadAtEveryShow) {
  show(choice({1}));
  robot.world.files.write("\\program\\q_bottom.ini", "<html><body bgcolor=white>");
  show(choice({1}));
  EXPECT_TRUE(html().starts_with("\r\n<html><body bgcolor=white>\r\n<style>"));
}

// ---- Pictures in the texts

TEST_F(QuestionPage, OnlyTheFirstPictureOfEachTextGetsItsFolder) {
  Question question = choice({1});
  question.question_text = "<img src=\"a.gif\"> and <img src=\"b.gif\">";
  question.answers[2] = "<img src=\"c.gif\"><img src=\"d.gif\">";
  question.answers[3] = "<img src=\"e.gif\">";
  show(question);
  for (const char* picture : {"a.gif", "c.gif", "e.gif"}) {
    EXPECT_TRUE(page_has("<img src=\"" + folder() + picture + "\">")) << picture;
  }
  EXPECT_TRUE(page_has("<img src=\"b.gif\">"));
  EXPECT_TRUE(page_has("<img src=\"d.gif\">"));
}

TEST_F(QuestionPage, ASecondShowDoesNotAddTheFolderTwice) {
  Question question = choice({1});
  question.question_text = "<img src=\"a.gif\">";
  show(question);
  back();
  EXPECT_EQ(count(html(), folder() + "a.gif"), 1);
  EXPECT_EQ(row(1).question_text, "<img src=\"a.gif\">");
}

TEST_F(QuestionPage, WhereAPictureTakesItsFolder) {
  const std::pair<const char*, const char*> cases[] = {
      {"no picture", "no picture"},
      {"<img src=\"a.gif\">", "<img src=\"X/a.gif\">"},
      {"<img src= \"a.gif\">", "<img src= \"X/a.gif\">"},
      {"<img src=a.gif> \"quoted\"", "<img src=a.gif> \"X/quoted\""},
      {"<img src=a.gif>", "<img src=a.gif>"},
      {"\"before\" <img src=a.gif>", "\"before\" <img src=a.gif>"},
      {"<IMG SRC=\"a.gif\">", "<IMG SRC=\"a.gif\">"},
      {"<img src", "<img src"}};
  for (const auto& [before, after] : cases) {
    std::string text = before;
    add_picture_folder(text, "X/");
    EXPECT_EQ(text, after);
  }
}

// ---- Font

TEST_F(QuestionPage, AFontSizeOfNothingBecomesTwelveForGood) {
  for (const int size : {0, -3}) {
    options().font_size = size;
    show(choice({1}));
    EXPECT_TRUE(page_has("BODY{font-size: 12 pt}\r\nTABLE{font-size: 12 pt}\r\n"));
    EXPECT_EQ(options().font_size, 12);
  }
}

// ---- The line of instruction and the answers

TEST_F(QuestionPage, WithoutTheCountNoPageTellsHowManyToTick) {
  options().show_answer_count = 0;
  show(choice({1}));
  EXPECT_TRUE(page_has("<p align=center>Select the correct answer.<zzexplanation>"));
  EXPECT_FALSE(page_has("Best Answer"));
  show(choice({1, 2, 3}));
  EXPECT_TRUE(page_has("<p align=center>Select the correct answers.<zzexplanation>"));
  EXPECT_FALSE(page_has("Best Answer"));
}

TEST_F(QuestionPage, BoxesForOneCorrectAnswerStillSpeakOfSeveral) {
  options().radio_for_single = false;
  show(choice({4}));
  EXPECT_TRUE(page_has("Select the 1 Best Answers."));
}

TEST_F(QuestionPage, ABlankAmongTheAnswersHidesTheLastOne) {
  Question question = choice({1});
  question.answers[2] = "  ";
  show(question);
  EXPECT_TRUE(page_has("varcount=3\r\n"));
  EXPECT_TRUE(page_has("B.\t  </option>"));
  EXPECT_TRUE(page_has("C.\tthree</option>"));
  EXPECT_FALSE(page_has("four"));
}

TEST_F(QuestionPage, SixAnswersHaveTheLettersToF) {
  Question question = choice({1});
  question.answers[5] = "five";
  question.answers[6] = "six";
  show(question);
  ASSERT_NE(robot.page().input("radio1", 5), nullptr);
  EXPECT_EQ(robot.page().input("radio1", 5)->access_key, "f");
  EXPECT_EQ(robot.page().input("radio1", 5)->label, "F.\tsix");
}

TEST_F(QuestionPage, ATypedAnswerLosesItsQuotesWhenItIsShownAgain) {
  show(fill_in({"x"}));
  robot.type_on_page("txt_fill", "a\"b'c");
  back();
  EXPECT_EQ(robot.page().input("txt_fill")->value, "abc");
  EXPECT_EQ(row(1).typed_answer, "a\"b'c");
}

// ---- What stands below

TEST_F(QuestionPage, AFirstExhibitThatIsNoTextFileHasItsButtonOnly) {
  Question question = choice({1});
  question.exhibits[1] = "q31.gif";
  show(question);
  EXPECT_TRUE(quest().exhibitbutton[0].visible);
  EXPECT_FALSE(page_has(exhibit_link));
  EXPECT_FALSE(page_has(notice));
}

TEST_F(QuestionPage, OnlyTheFirstExhibitHasALink) {
  Question question = choice({1});
  question.exhibits[2] = "q31.txt";
  question.exhibits[3] = "q32.txt";
  show(question);
  EXPECT_FALSE(page_has(notice));
  question.exhibits[1] = "Q31.TXT";
  show(question);
  EXPECT_EQ(count(html(), "Click Here</a>"), 1);
  EXPECT_EQ(count(html(), notice), 1);
  EXPECT_TRUE(page_has(exhibit_link));
}

TEST_F(QuestionPage, MarkersAndDeviceModelsAreNoDiagrams) {
  for (const char* name : {"", "  ", "1900", "2950", "xxsim", "xxxdnd", "xxxmssim", "xxxmssim2"}) {
    for (int i = 1; i <= 3; ++i) {
      Question question = choice({1});
      question.diagrams[i] = name;
      show(question);
      EXPECT_FALSE(page_has("Diagram ")) << name << i;
      EXPECT_FALSE(page_has(notice)) << name << i;
    }
  }
  Question question = choice({1});
  question.diagrams[1] = "xxmssim";
  show(question);
  EXPECT_TRUE(page_has("<hr>Diagram  1<br><img src=\"" + folder() + "xxmssim\"><p>"));
}

TEST_F(QuestionPage, TheTutorsNameGetsAnEndingUnlessItHoldsOne) {
  const std::pair<const char*, const char*> cases[] = {{"vlan", "vlan.wmv"},
                                                       {"vlan.wmv", "vlan.wmv"},
                                                       {"VLAN.Wav", "VLAN.Wav"},
                                                       {"vlan.mp3", "vlan.mp3"},
                                                       {"vlan.avi", "vlan.avi.wmv"}};
  for (const auto& [name, file_name] : cases) {
    for (const int embedded : {0, 1}) {
      options().embed_media = embedded;
      Question question = choice({1});
      question.tutor_file = name;
      show(question);
      EXPECT_TRUE(page_has(std::string("/tests/46000/") + file_name + "\">")) << name;
      EXPECT_TRUE(page_has("Please Scroll Down to See Online Tutor<zzexplanation>"));
      EXPECT_EQ(page_has("MediaPlayer1"), embedded == 1);
    }
  }
}

TEST_F(QuestionPage, APlainQuestionHasNothingBelow) {
  show(choice({1}));
  EXPECT_TRUE(html().ends_with("};\r\n</script>\r\n\r\n</BODY>"));
  EXPECT_FALSE(page_has("Please Scroll Down"));
}

}  // namespace
}  // namespace practice
