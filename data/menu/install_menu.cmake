# Writes the entries of the desktop's menu, one per exam, when the program is installed.
#
# Needs CMAKE_INSTALL_PREFIX, where the program lies; menu_source, this folder; menu_build, a folder
# to work in. In <share>/practice-exam the program is where desktops look for entries beside it, in
# <share>/applications; elsewhere they go into the prefix.

set(exams
  "46000|FALCO|campus switching"
  "46002|ROBIN|network design"
  "46003|EGRET|routing"
  "46004|LARK|network fundamentals"
  "46005|HERON|wide-area and remote access"
  "46006|MERLE|voice and quality of service"
  "46007|WREN|security")

# A value of an entry: a backslash begins an escape there.
function(as_value text result)
  string(REPLACE "\\" "\\\\" text "${text}")
  set(${result} "${text}" PARENT_SCOPE)
endfunction()

# A program's path as the first word of Exec, which is quoted like a shell's word, has its own use
# for the percent sign, and is a value too.
function(as_command path result)
  foreach(special IN ITEMS "\\" "\"" "`" "$")
    string(REPLACE "${special}" "\\${special}" path "${path}")
  endforeach()
  string(REPLACE "%" "%%" path "${path}")
  as_value("\"${path}\"" path)
  set(${result} "${path}" PARENT_SCOPE)
endfunction()

get_filename_component(prefix "${CMAKE_INSTALL_PREFIX}" ABSOLUTE)
get_filename_component(around "${prefix}" DIRECTORY)
get_filename_component(name_around "${around}" NAME)
if(name_around STREQUAL "share")
  set(entries "${around}/applications")
else()
  set(entries "${prefix}/applications")
endif()

as_command("${prefix}/practice_exam_start" exec)
as_value("${prefix}/practice_exam_256.png" icon)
foreach(each IN LISTS exams)
  string(REPLACE "|" ";" each "${each}")
  list(GET each 0 code)
  list(GET each 1 exam)
  list(GET each 2 subject)
  set(entry "${menu_build}/practice-exam-${code}.desktop")
  configure_file("${menu_source}/practice-exam.desktop.in" "${entry}" @ONLY)
  # Heeds DESTDIR, which is no part of the paths inside the entry.
  file(INSTALL DESTINATION "${entries}" TYPE FILE FILES "${entry}")
endforeach()
