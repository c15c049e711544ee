#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/html/document.h"
#include "platform/values/fault.h"

namespace practice::html {
namespace {

constexpr int deepest = 260;

const std::string guard_scripts =
    "<script language=JavaScript>\r\n<!--\r\n\r\nvar message='Off!';\r\n"
    "function off(e){\r\nif (e.which<2&&e.which>0){ document.write(\"</b>\"); }\r\n}\r\n"
    "// -->\r\n</script>\r\n\r\n";
const std::string header =
    "<html>\r\n<head>\r\n<title>Practice\r\n  &amp; Exam </title>\r\n</head>\r\n"
    "<body bgcolor=#ffffff>\r\n<form name=frm>\r\n";
const std::string style_block =
    "\r\n<style>\r\nBODY{font-size: 12 pt}\r\nTABLE{font-size: 12 pt}\r\n"
    "BODY{font-family:Times New Roman}\r\n</style>";
const std::string question_page =
    guard_scripts + header + style_block +
    "<table border=0 cellpadding=0 cellspacing=0 width=100% height=100% ><tr><td align=top "
    "height=2><img  align=top onclick=\"tabclick(1)\" src=\"/p\\exam\\Question_active.gif\"></td>"
    "</tr><tr><td valign=top> 3.) Which ... ?<p><SCRIPT LANGUAGE=VBScript>\r\nvarcount=4\r\n "
    "questiontype=\"radio\" </SCRIPT>\r\n\r\n"
    "<input checked type=radio accesskey=\"a\"  name=\"radio1\" value=V1>A.\tText of the answer, "
    "may hold <br> inside</option><br>\r\n"
    "<input  type=radio accesskey=\"b\"  name=\"radio1\" value=V2>B.\tSecond</option><br></td></tr>"
    "<tr><td ><p align=center>Select the 1 Best Answer.<br><center><b>Please Scroll Down to See "
    "Exhibits and/or Diagrams<zzexplanation></td></tr></td></tr></table>\r\n"
    "<script language=vbscript>if a<b then\r\n x=\"</td>\"\r\nend if</script>behind the script<hr>"
    "<a href=\"javascript:; void(' ');\"id=\"Exhibit1\"onclick=myfunction()>Exhibit #  1 Click "
    "Here</a><br></BODY></body></html>";

Document page(std::string_view markup) {
  Document document;
  document.open();
  document.write(markup);
  document.close();
  return document;
}

bool is_hidden(const Node& node) {
  return node.tag == "script" || node.tag == "style" || node.tag == "title";
}

void add_visible_text(const Node& node, std::string& text) {
  if (is_hidden(node)) return;
  text += node.text;
  for (const auto& child : node.children) add_visible_text(*child, text);
  if (!node.is_text()) text += ' ';
}

// What a reader of the body sees, blanks folded.
std::string visible_text(const Document& document) {
  std::string text;
  if (document.body() != nullptr) add_visible_text(*document.body(), text);
  std::string folded;
  for (const char c : text) {
    const bool is_blank = c == ' ' || c == '\n' || c == '\t';
    if (!is_blank) {
      folded += c;
    } else if (!folded.empty() && folded.back() != ' ') {
      folded += ' ';
    }
  }
  if (folded.ends_with(' ')) folded.pop_back();
  return folded;
}

int depth_of(const Node& node) {
  int deepest_child = 0;
  for (const auto& child : node.children) deepest_child = std::max(deepest_child, depth_of(*child));
  return deepest_child + 1;
}

const Node* find_tag(const Node& node, std::string_view tag) {
  if (node.tag == tag) return &node;
  for (const auto& child : node.children) {
    if (const Node* found = find_tag(*child, tag)) return found;
  }
  return nullptr;
}

std::string repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

// ---- open, write, close, clear

TEST(HtmlDocumentTest, IsEmptyAtFirst) {
  Document document;
  EXPECT_EQ(document.root(), nullptr);
  EXPECT_EQ(document.body(), nullptr);
  EXPECT_EQ(document.title(), "");
  EXPECT_EQ(document.written(), "");
  EXPECT_EQ(document.revision(), 0u);
  EXPECT_EQ(document.element_by_id("x"), nullptr);
  EXPECT_EQ(document.input("x"), nullptr);
  EXPECT_EQ(document.input_with_access_key("a"), nullptr);
  EXPECT_TRUE(document.inputs().empty());
  EXPECT_EQ(document.style().font_points, 0);
}

TEST(HtmlDocumentTest, RaisesFault424ForWritingWhileItIsNotOpen) {
  const auto fault = [](Document& document) {
    try {
      document.write("x");
    } catch (const Fault& raised) {
      return raised.number();
    }
    return 0;
  };
  Document document;
  EXPECT_EQ(fault(document), 424);
  document.open();
  EXPECT_EQ(fault(document), 0);
  document.close();
  EXPECT_EQ(fault(document), 424);
  document.open();
  document.clear();
  EXPECT_EQ(fault(document), 424);
}

TEST(HtmlDocumentTest, JoinsWhatIsWrittenBeforeItParses) {
  Document document;
  document.open();
  document.write("<p al");
  document.write("ign=center>o\xC3");
  document.write("\xA9ne<inp");
  document.write("ut name=x>");
  EXPECT_EQ(document.root(), nullptr);
  document.close();
  EXPECT_EQ(visible_text(document), "oéne");
  EXPECT_NE(document.input("x"), nullptr);
  EXPECT_EQ(document.written(), "<p align=center>o\xC3\xA9ne<input name=x>");
}

TEST(HtmlDocumentTest, KeepsThePageUntilTheNextOneIsClosed) {
  Document document = page("<title>t</title>first<input name=x>");
  const Node* root = document.root();
  const Input* input = document.input("x");
  document.open();
  document.write("second");
  EXPECT_EQ(document.written(), "second");
  EXPECT_EQ(document.root(), root);
  EXPECT_EQ(document.input("x"), input);
  EXPECT_EQ(visible_text(document), "first");
  document.close();
  EXPECT_EQ(visible_text(document), "second");
  EXPECT_EQ(document.input("x"), nullptr);
  EXPECT_EQ(document.title(), "");
}

TEST(HtmlDocumentTest, StartsAnewWhenItIsOpenedTwice) {
  Document document;
  document.open();
  document.write("lost");
  document.open();
  document.write("kept");
  document.close();
  EXPECT_EQ(visible_text(document), "kept");
}

TEST(HtmlDocumentTest, ForgetsEverythingWhenItIsCleared) {
  Document document = page(question_page);
  document.clear();
  EXPECT_EQ(document.root(), nullptr);
  EXPECT_EQ(document.body(), nullptr);
  EXPECT_TRUE(document.inputs().empty());
  EXPECT_EQ(document.title(), "");
  EXPECT_EQ(document.written(), "");
  EXPECT_EQ(document.style().font_points, 0);
  EXPECT_EQ(document.style().font_family, "");
}

TEST(HtmlDocumentTest, CountsClosesAndClears) {
  Document document;
  document.open();
  document.write("x");
  EXPECT_EQ(document.revision(), 0u);
  document.close();
  EXPECT_EQ(document.revision(), 1u);
  document.close();
  EXPECT_EQ(document.revision(), 1u) << "closing a closed document does nothing";
  EXPECT_EQ(visible_text(document), "x");
  document.clear();
  EXPECT_EQ(document.revision(), 2u);
  document.open();
  document.close();
  EXPECT_EQ(document.revision(), 3u);
}

TEST(HtmlDocumentTest, HasNoTreeWhenNothingWasWritten) {
  EXPECT_EQ(page("").root(), nullptr);
  EXPECT_EQ(page(" \r\n ").root(), nullptr);
  EXPECT_EQ(page("<!-- nothing -->").body(), nullptr);
}

TEST(HtmlDocumentTest, KeepsPointersWhileItIsOperatedAndMoved) {
  Document document = page(question_page);
  Node* link = document.element_by_id("Exhibit1");
  Input* first = document.input("radio1", 0);
  Input* second = document.input("radio1", 1);
  link->onclick = [] {};
  document.set_checked(*second, true);
  document.input("radio1")->value = "changed";
  document.open();
  document.write("not closed yet");
  Document moved = std::move(document);
  EXPECT_EQ(moved.element_by_id("Exhibit1"), link);
  EXPECT_EQ(moved.input("radio1", 0), first);
  EXPECT_EQ(moved.input("radio1", 1), second);
  EXPECT_EQ(first->value, "changed");
  EXPECT_TRUE(second->checked);
  EXPECT_EQ(second->node->tag, "input");
  EXPECT_TRUE(link->onclick);
  document = std::move(moved);
  EXPECT_EQ(document.input("radio1", 1), second);
}

// ---- the tree

TEST(HtmlDocumentTest, HangsEveryNodeUnderItsParent) {
  Document document = page(question_page);
  EXPECT_EQ(document.root()->tag, "html");
  EXPECT_EQ(document.root()->parent, nullptr);
  EXPECT_EQ(document.body()->tag, "body");
  EXPECT_EQ(document.body()->parent, document.root());
  std::vector<const Node*> ahead{document.root()};
  while (!ahead.empty()) {
    const Node* node = ahead.back();
    ahead.pop_back();
    EXPECT_EQ(node->is_text(), !node->text.empty());
    for (const auto& child : node->children) {
      EXPECT_EQ(child->parent, node);
      ahead.push_back(child.get());
    }
  }
}

TEST(HtmlDocumentTest, WritesNamesInLowerCaseAndKeepsValues) {
  Document document = page("<BODY BgColor=#FFEEDD><Hr NoShade WIDTH='5 %'>");
  EXPECT_EQ(document.body()->attribute("bgcolor"), "#FFEEDD");
  const Node* rule = find_tag(*document.root(), "hr");
  ASSERT_NE(rule, nullptr);
  EXPECT_TRUE(rule->has_attribute("noshade"));
  EXPECT_EQ(rule->attribute("noshade"), "");
  EXPECT_EQ(rule->attribute("width"), "5 %");
  EXPECT_FALSE(rule->has_attribute("size"));
  EXPECT_EQ(rule->attribute("size"), "");
}

TEST(HtmlDocumentTest, KeepsTheFirstOfRepeatedAttributes) {
  Document document = page("<body a=1><p id=x ID=y>t</p><body a=2>");
  EXPECT_EQ(find_tag(*document.root(), "p")->attribute("id"), "x");
  EXPECT_EQ(document.body()->attribute("a"), "1");
}

TEST(HtmlDocumentTest, KeepsBackslashesOfAPictureAddress) {
  Document document = page(question_page);
  const Node* picture = find_tag(*document.root(), "img");
  ASSERT_NE(picture, nullptr);
  EXPECT_EQ(picture->attribute("src"), "/p\\exam\\Question_active.gif");
  EXPECT_EQ(picture->attribute("onclick"), "tabclick(1)");
}

TEST(HtmlDocumentTest, DecodesEntitiesInTextAndAttributes) {
  Document document =
      page("<p title=\"a&lt;b &amp; &quot;c&quot;\">1 &lt; 2 &amp; 3 &eacute;&#233;&#xE9;");
  EXPECT_EQ(visible_text(document), "1 < 2 & 3 ééé");
  EXPECT_EQ(find_tag(*document.root(), "p")->attribute("title"), "a<b & \"c\"");
}

TEST(HtmlDocumentTest, KeepsAnAmpersandAndALessSignThatStandAlone) {
  EXPECT_EQ(visible_text(page("<p>AT&T &unknown; a < b, 3<4 & more")),
            "AT&T &unknown; a < b, 3<4 & more");
}

TEST(HtmlDocumentTest, EndsLinesByALineFeed) {
  Document document = page("<pre title=\"a\r\nb\">one\r\ntwo\rthree\n\rfour</pre>");
  EXPECT_EQ(find_tag(*document.root(), "pre")->attribute("title"), "a\nb");
  EXPECT_EQ(find_tag(*document.root(), "pre")->children.at(0)->text, "one\ntwo\nthree\n\nfour");
}

TEST(HtmlDocumentTest, JoinsTextIntoOneNode) {
  Document document = page("<p>a&amp;b<!-- c -->d" + std::string(5000, 'x'));
  const Node* paragraph = find_tag(*document.root(), "p");
  ASSERT_EQ(paragraph->children.size(), 1u);
  EXPECT_EQ(paragraph->children[0]->text, "a&bd" + std::string(5000, 'x'));
}

TEST(HtmlDocumentTest, ReadsUtf8WhateverThePageClaims) {
  const std::string claim =
      "<head><meta http-equiv=Content-Type content=\"text/html; charset=windows-1252\"></head>";
  EXPECT_EQ(visible_text(page(claim + "<body>caf\u00E9 \u65E5 \U0001F600")), "café 日 😀");
  EXPECT_EQ(visible_text(page("\xEF\xBB\xBF<p>caf\u00E9")), "café");
}

TEST(HtmlDocumentTest, ShowsEverythingVisibleOfAQuestionPageInItsOrder) {
  EXPECT_EQ(visible_text(page(question_page)),
            "3.) Which ... ? A. Text of the answer, may hold inside B. Second Select the 1 Best "
            "Answer. Please Scroll Down to See Exhibits and/or Diagrams behind the script Exhibit "
            "# 1 Click Here");
}

TEST(HtmlDocumentTest, KeepsScriptsAsInertText) {
  Document document = page("<p>a<script>if (a<b) { write(\"</p><b>x</b>\"); }</script>b");
  const Node* script = find_tag(*document.root(), "script");
  ASSERT_NE(script, nullptr);
  ASSERT_EQ(script->children.size(), 1u);
  EXPECT_EQ(script->children[0]->text, "if (a<b) { write(\"</p><b>x</b>\"); }");
  EXPECT_EQ(find_tag(*document.root(), "b"), nullptr);
  EXPECT_EQ(visible_text(document), "ab");
}

TEST(HtmlDocumentTest, NeverShowsAScriptThatIsNotClosed) {
  EXPECT_EQ(visible_text(page("seen<script>hidden <b>text</b>")), "seen");
  EXPECT_EQ(visible_text(page("seen<style>hidden")), "seen");
}

TEST(HtmlDocumentTest, ScriptsInFrontOfAPageAreReadOver) {
  for (const char* scripts :
       {"<script>a</script>", " <SCRIPT language=x>if (a<b) '<p>'</SCRIPT >\r\n",
        "<script>a</script><script src='a>b'></script>", "<script/>a</script>"}) {
    Document document = page(std::string(scripts) + "<html><body>seen<p>too</body></html>");
    EXPECT_EQ(visible_text(document), "seentoo") << scripts;
    EXPECT_TRUE(document.written().starts_with(scripts));
  }
  EXPECT_EQ(visible_text(page("<script>never closed <p>hidden")), "");
  EXPECT_EQ(visible_text(page("<scripture>seen</scripture>")), "seen");
}

TEST(HtmlDocumentTest, PutsExhibitsBehindTheTableIntoTheBody) {
  Document document = page(question_page);
  const Node* link = document.element_by_id("Exhibit1");
  ASSERT_NE(link, nullptr);
  bool is_in_body = false;
  bool is_in_table = false;
  for (const Node* node = link; node != nullptr; node = node->parent) {
    is_in_body = is_in_body || node == document.body();
    is_in_table = is_in_table || node->tag == "table";
  }
  EXPECT_TRUE(is_in_body);
  EXPECT_FALSE(is_in_table);
}

TEST(HtmlDocumentTest, PutsWhatStandsBehindTheBodyIntoTheBody) {
  Document document = page(
      "<html><body>a</body> b<p>c</p></html>d <a id=late>e</a><html><body x=1>f</body></html> g");
  EXPECT_EQ(visible_text(document), "a b c d e f g");
  EXPECT_NE(document.element_by_id("late"), nullptr);
  EXPECT_EQ(document.body()->attribute("x"), "1");
  const auto& parts = document.root()->children;
  EXPECT_EQ(std::ranges::count(parts, "body", &Node::tag), 1);
  EXPECT_EQ(document.root()->children.size(), 1u);
}

TEST(HtmlDocumentTest, PutsWhatStandsInFrontOfTheBodyIntoTheBody) {
  Document document =
      page("<html><head>stray <b>bold </b><title>t</title></head>between<body> inside");
  EXPECT_EQ(visible_text(document), "stray bold between inside");
  EXPECT_EQ(document.title(), "t");
}

TEST(HtmlDocumentTest, ShowsTheTextOfFrameSets) {
  EXPECT_EQ(visible_text(page("<frameset><frame src=x><noframes>no frames</noframes></frameset>")),
            "no frames");
}

TEST(HtmlDocumentTest, ReadsATagWhoseAttributesTouch) {
  Document document = page(question_page);
  const Node* link = document.element_by_id("Exhibit1");
  ASSERT_NE(link, nullptr);
  EXPECT_EQ(link->tag, "a");
  EXPECT_EQ(link->attribute("href"), "javascript:; void(' ');");
  EXPECT_EQ(link->attribute("id"), "Exhibit1");
  EXPECT_EQ(link->attribute("onclick"), "myfunction()");
}

TEST(HtmlDocumentTest, IgnoresAttributesOfAClosingTag) {
  Document document = page(
      "<p align=center><input type=text name=a></p onblur=alert(\"hi\")>"
      "<p align=center><b>Please Type</b></p><br>");
  EXPECT_EQ(visible_text(document), "Please Type");
  const Node& body = *document.body();
  ASSERT_EQ(body.children.size(), 3u);
  EXPECT_EQ(body.children[0]->tag, "p");
  EXPECT_EQ(body.children[1]->tag, "p");
  EXPECT_EQ(body.children[2]->tag, "br");
}

TEST(HtmlDocumentTest, ClosesNothingByAStrayOptionTag) {
  Document document = page("<p><b>one</option>two</b>");
  EXPECT_EQ(find_tag(*document.root(), "b")->children.at(0)->text, "onetwo");
}

TEST(HtmlDocumentTest, KeepsAnUnknownTagAsAnElement) {
  Document document = page("<p>a<zzexplanation> b");
  EXPECT_NE(find_tag(*document.root(), "zzexplanation"), nullptr);
  EXPECT_EQ(visible_text(document), "a b");
}

// ---- title and ids

TEST(HtmlDocumentTest, FoldsTheTitle) {
  EXPECT_EQ(page(question_page).title(), "Practice & Exam");
  EXPECT_EQ(page("<p>text</p><title> late\n title </title>more").title(), "late title");
  EXPECT_EQ(page("<title>one</title><title>two</title>x").title(), "one");
  EXPECT_EQ(page("<p>no title").title(), "");
}

TEST(HtmlDocumentTest, FindsTheFirstElementOfAnId) {
  Document document = page("<div><b id=x>1</b></div><i id=x>2</i><u id=\"\">3</u>");
  EXPECT_EQ(document.element_by_id("x")->tag, "b");
  EXPECT_EQ(document.element_by_id("y"), nullptr);
  EXPECT_EQ(document.element_by_id("X"), nullptr);
  EXPECT_EQ(document.element_by_id(""), nullptr);
}

TEST(HtmlDocumentTest, KeepsTheHandlerOfAnElement) {
  Document document = page(question_page);
  int clicks = 0;
  document.element_by_id("Exhibit1")->onclick = [&] { ++clicks; };
  document.element_by_id("Exhibit1")->onclick();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(document.body()->onclick);
}

// ---- inputs

TEST(HtmlDocumentTest, ListsTheChoicesOfAQuestionPage) {
  Document document = page(question_page);
  ASSERT_EQ(document.inputs().size(), 2u);
  const Input& first = document.inputs()[0];
  EXPECT_EQ(first.kind, InputKind::radio);
  EXPECT_EQ(first.name, "radio1");
  EXPECT_EQ(first.value, "V1");
  EXPECT_TRUE(first.checked);
  EXPECT_EQ(first.access_key, "a");
  EXPECT_EQ(first.label, "A.\tText of the answer, may hold\ninside");
  EXPECT_EQ(first.size, 0);
  EXPECT_EQ(first.node->attribute("value"), "V1");
  const Input& second = document.inputs()[1];
  EXPECT_EQ(second.value, "V2");
  EXPECT_FALSE(second.checked);
  EXPECT_EQ(second.access_key, "b");
  EXPECT_EQ(second.label, "B.\tSecond");
}

TEST(HtmlDocumentTest, ListsCheckBoxes) {
  Document document = page(
      "<td><input type=checkbox accesskey=\"a\"  name=ans1 value=1>A.\tone</option><br>\r\n"
      "<input type=checkbox accesskey=\"b\" checked name=ans2 value=2>B.\ttwo</option><br>\r\n"
      "<input type=CheckBox accesskey=\"c\" CHECKED name=ans3 value=3>C.\tthree</option><br>\r\n");
  ASSERT_EQ(document.inputs().size(), 3u);
  EXPECT_EQ(document.input("ans1")->kind, InputKind::checkbox);
  EXPECT_EQ(document.input("ans3")->kind, InputKind::checkbox);
  EXPECT_FALSE(document.input("ans1")->checked);
  EXPECT_TRUE(document.input("ans2")->checked);
  EXPECT_TRUE(document.input("ans3")->checked);
  EXPECT_EQ(document.input("ans2")->label, "B.\ttwo");
  EXPECT_EQ(document.input("ans3")->label, "C.\tthree");
}

TEST(HtmlDocumentTest, ListsAFillInBox) {
  Document document = page(
      "<p align=center><input type=text name=txt_fill size=40 value=\"show &quot;ip&quot; "
      "route\"></p onblur=alert(\"hi\")><p align=center><b>Please Type Answer In Box Above</b>"
      "</p><br>");
  ASSERT_EQ(document.inputs().size(), 1u);
  const Input& input = document.inputs()[0];
  EXPECT_EQ(input.kind, InputKind::text);
  EXPECT_EQ(input.name, "txt_fill");
  EXPECT_EQ(input.value, "show \"ip\" route");
  EXPECT_EQ(input.size, 40);
  EXPECT_EQ(input.label, "");
  EXPECT_EQ(input.access_key, "");
}

TEST(HtmlDocumentTest, KnowsTheKindsOfInputs) {
  const std::map<std::string, InputKind> kinds = {
      {"<input>", InputKind::text},
      {"<input type=\"\">", InputKind::text},
      {"<input type=TEXT>", InputKind::text},
      {"<input type=' radio '>", InputKind::radio},
      {"<input type=Radio>", InputKind::radio},
      {"<input type=checkbox>", InputKind::checkbox},
      {"<input type=button>", InputKind::other},
      {"<input type=hidden>", InputKind::other},
      {"<input type=password>", InputKind::other},
      {"<input type=nonsense>", InputKind::other},
  };
  for (const auto& [markup, kind] : kinds)
    EXPECT_EQ(page(markup).inputs().at(0).kind, kind) << markup;
}

TEST(HtmlDocumentTest, ReadsTheSizeOfAnInput) {
  const std::map<std::string, int> sizes = {{"40", 40}, {"\"12 \"", 12}, {"x", 0},
                                            {"-5", 0},  {"1e9", 1000},   {"99999999999999", 1000},
                                            {"nan", 0}};
  for (const auto& [text, size] : sizes) {
    EXPECT_EQ(page("<input size=" + text + ">").inputs().at(0).size, size) << text;
  }
}

TEST(HtmlDocumentTest, TakesTheFirstLetterOrDigitAsAccessKey) {
  const std::map<std::string, std::string> keys = {
      {"a", "a"}, {"A", "a"},   {"Bc", "b"}, {"7", "7"}, {"É", "é"},    {"Ж", "ж"},
      {"*", ""},  {"' a'", ""}, {"''", ""},  {"日", ""}, {"&#65;", "a"}};
  for (const auto& [text, key] : keys) {
    EXPECT_EQ(page("<input accesskey=" + text + ">").inputs().at(0).access_key, key) << text;
  }
}

TEST(HtmlDocumentTest, FindsInputsByAccessKeyInEitherCase) {
  Document document =
      page("<input name=none><input name=a accesskey=A><input name=a2 accesskey=a>");
  ASSERT_NE(document.input_with_access_key("a"), nullptr);
  EXPECT_EQ(document.input_with_access_key("a")->name, "a");
  EXPECT_EQ(document.input_with_access_key("A")->name, "a");
  EXPECT_EQ(document.input_with_access_key("b"), nullptr);
  EXPECT_EQ(document.input_with_access_key(""), nullptr);
}

TEST(HtmlDocumentTest, FindsInputsByNameAndIndexWhateverTheCase) {
  Document document = page("<input name=Radio1 value=1><input name=x><input name=rADIO1 value=2>");
  EXPECT_EQ(document.input("RADIO1")->value, "1");
  EXPECT_EQ(document.input("radio1", 1)->value, "2");
  EXPECT_EQ(document.input("radio1", 2), nullptr);
  EXPECT_EQ(document.input("radio1", -1), nullptr);
  EXPECT_EQ(document.input("radio"), nullptr);
}

TEST(HtmlDocumentTest, ChecksTheLastOfSeveralCheckedRadioInputs) {
  Document document = page(
      "<input type=radio name=r checked><input type=radio name=R checked><input type=radio "
      "name=other checked><input type=radio name=r>");
  EXPECT_FALSE(document.inputs()[0].checked);
  EXPECT_TRUE(document.inputs()[1].checked);
  EXPECT_TRUE(document.inputs()[2].checked);
  EXPECT_FALSE(document.inputs()[3].checked);
}

TEST(HtmlDocumentTest, LetsRadioInputsOfANameExcludeEachOther) {
  Document document = page(
      "<input type=radio name=r checked><input type=radio name=R><input type=radio name=other "
      "checked><input type=checkbox name=r checked>");
  auto& inputs = document.inputs();
  document.set_checked(inputs[1], true);
  EXPECT_FALSE(inputs[0].checked);
  EXPECT_TRUE(inputs[1].checked);
  EXPECT_TRUE(inputs[2].checked);
  EXPECT_TRUE(inputs[3].checked) << "a check box is of no group";
  document.set_checked(inputs[1], true);
  EXPECT_TRUE(inputs[1].checked);
  document.set_checked(inputs[1], false);
  EXPECT_FALSE(inputs[0].checked);
  EXPECT_FALSE(inputs[1].checked);
}

TEST(HtmlDocumentTest, LetsRadioInputsWithoutANameStandAlone) {
  Document document = page("<input type=radio checked><input type=radio checked>");
  EXPECT_TRUE(document.inputs()[0].checked);
  document.set_checked(document.inputs()[1], true);
  EXPECT_TRUE(document.inputs()[0].checked);
}

TEST(HtmlDocumentTest, ChecksBoxesOneByOneAndOtherKindsNever) {
  Document document = page(
      "<input type=checkbox name=a><input type=checkbox name=a checked>"
      "<input type=text name=a checked>");
  auto& inputs = document.inputs();
  EXPECT_FALSE(inputs[2].checked);
  document.set_checked(inputs[0], true);
  document.set_checked(inputs[2], true);
  EXPECT_TRUE(inputs[0].checked);
  EXPECT_TRUE(inputs[1].checked);
  EXPECT_FALSE(inputs[2].checked);
  document.set_checked(inputs[1], false);
  EXPECT_TRUE(inputs[0].checked);
  EXPECT_FALSE(inputs[1].checked);
}

TEST(HtmlDocumentTest, FoldsTheBlanksOfALabel) {
  const std::map<std::string, std::string> labels = {
      {"A.\tOSPF", "A.\tOSPF"},
      {"A. \t \r\nOSPF", "A.\tOSPF"},
      {"A. OSPF", "A. OSPF"},
      {"A.\tone\ttwo", "A.\tone two"},
      {"one\ttwo", "one two"},
      {"  A.\tone\r\n   two  ", "A.\tone two"},
      {"A.\tone <br> two", "A.\tone\ntwo"},
      {"A.\tone<br><br>two", "A.\tone\n\ntwo"},
      {"A.\tone<br>\r\n<br> \r\n", "A.\tone"},
      {"<br>A.\tone", "A.\tone"},
      {"A.\t<b>one</b><i>two</i> <u> three</u>", "A.\tonetwo three"},
      {"A.\tone<script>no</script> two<style>no</style>", "A.\tone two"},
      {"A.\tone&nbsp; two", "A.\tone\u00A0 two"},
      {"A.\t&lt;b&gt;", "A.\t<b>"},
      {"", ""},
      {"<br>", ""},
  };
  for (const auto& [markup, label] : labels) {
    EXPECT_EQ(page("<td><input>" + markup + "</td>behind").inputs().at(0).label, label) << markup;
  }
}

TEST(HtmlDocumentTest, EndsALabelAtTheNextInput) {
  Document document = page("<p>in front<input name=a>one<b><input name=b>two</b> three");
  EXPECT_EQ(document.input("a")->label, "one");
  EXPECT_EQ(document.input("b")->label, "two three");
}

TEST(HtmlDocumentTest, EndsALabelAtTheEdgeOfABlock) {
  for (const char* edge :
       {"</td><td>", "</td></tr><tr><td>", "</td></tr></table>", "<p>", "<hr>", "<table><tr><td>",
        "<center>", "<div>", "<h1>", "<ul><li>", "<pre>", "</td></tr></table></form>"}) {
    Document document =
        page(std::string("<body><form><table><tr><td><input name=a>label<br>") + edge + "behind");
    EXPECT_EQ(document.input("a")->label, "label") << edge;
    EXPECT_EQ(visible_text(document), "label behind") << edge;
  }
}

// ---- style rules

TEST(HtmlDocumentTest, ReadsTheStyleOfAQuestionPage) {
  Document document = page(question_page);
  EXPECT_EQ(document.style().font_points, 12);
  EXPECT_EQ(document.style().font_family, "Times New Roman");
}

TEST(HtmlDocumentTest, ReadsFontSizes) {
  const std::map<std::string, double> sizes = {
      {"12 pt", 12},
      {"12pt", 12},
      {" 14 PT", 14},
      {"14", 14},
      {"16px", 12},
      {"16 px", 12},
      {"10.5pt", 10.5},
      {".5pt", 1},
      {"0", 1},
      {"500pt", 200},
      {"400px", 200},
      {"1000", 200},
      {"9pt !important", 9},
      {"\r\n 9\r\npt\r\n", 9},
  };
  for (const auto& [text, points] : sizes) {
    EXPECT_DOUBLE_EQ(page("<style>body{font-size:" + text + "}</style>").style().font_points,
                     points)
        << text;
  }
}

TEST(HtmlDocumentTest, IgnoresFontSizesThatMakeNoSense) {
  for (const char* text : {"", "large", "-5pt", "pt", "12 em", "120%", "12 pt 13 pt", "1e1 pt",
                           "nan", "inf", "12,5 pt", "+", "0x10"}) {
    const std::string rules = "<style>body{font-size: 11 pt}body{font-size:";
    EXPECT_EQ(page(rules + text + "}</style>").style().font_points, 11) << text;
    EXPECT_EQ(page("<style>body{font-size:" + std::string(text) + "}</style>").style().font_points,
              0)
        << text;
  }
}

TEST(HtmlDocumentTest, ReadsFontFamilies) {
  const std::map<std::string, std::string> families = {
      {"Arial", "Arial"},
      {" Times New Roman ", "Times New Roman"},
      {"'Courier New', monospace", "Courier New"},
      {"\"Verdana\"", "Verdana"},
      {"Verdana !important", "Verdana"},
      {"", "Before"},
      {" , ", "Before"},
      {"''", "Before"},
  };
  for (const auto& [text, family] : families) {
    const std::string rules = "<style>BODY{font-family:Before}\r\nBODY{font-family:";
    EXPECT_EQ(page(rules + text + "}</style>").style().font_family, family) << text;
  }
}

TEST(HtmlDocumentTest, LetsTheLastRuleForTheBodyWin) {
  const Style style = page(
                          "<style>Body{FONT-SIZE:10pt;font-family:A}\nbody{font-size:11pt}</style>x"
                          "<style>h1, body , p {color:red;;font-size:12pt; }\n"
                          "TABLE{font-size:20pt}\n.body{font-size:21pt} body b{font-size:22pt}"
                          "</style>")
                          .style();
  EXPECT_EQ(style.font_points, 12);
  EXPECT_EQ(style.font_family, "A");
}

TEST(HtmlDocumentTest, ReadsRulesThroughCommentsAndLooseBraces) {
  const std::map<std::string, double> rules = {
      {"<!-- body{font-size:9pt} -->", 9},
      {"/* body{font-size:8pt} */ body/**/{/* x } */font-size:9pt}", 9},
      {"body{font-size:9pt} /* never closed body{font-size:8pt}", 9},
      {"}} body{font-size:9pt}", 9},
      {"body{font-size:9pt", 9},
      {"@media print{body{font-size:8pt}} body{font-size:9pt}", 9},
      {"body", 0},
      {"{}", 0},
      {"body{}", 0},
      {"body{font-size}", 0},
      {"body{:9pt}", 0},
  };
  for (const auto& [text, points] : rules) {
    EXPECT_EQ(page("<style>" + text + "</style>x").style().font_points, points) << text;
  }
}

// ---- hostile pages

TEST(HtmlDocumentTest, SurvivesZeroBytesAndControlCharacters) {
  using namespace std::string_view_literals;
  EXPECT_EQ(visible_text(page("a\0b<p>c\0</p>\1\2d\x1F\x7F<!-- \0 -->e\0"sv)),
            "a b c d \x7F"
            "e");
  EXPECT_EQ(page("\0"sv).body(), nullptr);
  EXPECT_EQ(visible_text(page("\0\0<\0p>x"sv)), "< p>x");
}

TEST(HtmlDocumentTest, ReplacesBytesThatAreNotUtf8) {
  EXPECT_EQ(visible_text(page("caf\xE9 is \u00E9")), "caf\uFFFD is é");
  EXPECT_EQ(visible_text(page("a\xC3")), "a\uFFFD");
  EXPECT_EQ(visible_text(page("\xED\xA0\x80x")), "\uFFFD\uFFFD\uFFFDx");
  EXPECT_EQ(visible_text(page("\xC0\xBCp>x")), "\uFFFD\uFFFDp>x");
  EXPECT_EQ(visible_text(page("\xFE\xFFx")), "\uFFFD\uFFFDx");
  EXPECT_EQ(page("<p title='\xE9'>").root()->children.at(0)->children.at(0)->attribute("title"),
            "\uFFFD");
}

TEST(HtmlDocumentTest, SurvivesDepthWithoutLosingText) {
  constexpr int count = 20'000;
  for (const char* tag : {"<b>", "<div>", "<table><tr><td>", "<x>", "<ul><li>", "<font size=2 >"}) {
    Document document =
        page("front " + repeated(tag, count) + " deep <input name=x><a id=y>link</a> behind" +
             repeated("</b>", count) + " end");
    EXPECT_LE(depth_of(*document.root()), deepest) << tag;
    EXPECT_EQ(visible_text(document), "front deep link behind end") << tag;
    EXPECT_NE(document.input("x"), nullptr) << tag;
    EXPECT_NE(document.element_by_id("y"), nullptr) << tag;
  }
}

TEST(HtmlDocumentTest, KeepsItsOrderWhereThePageIsTooDeep) {
  std::string markup;
  std::string words;
  for (int i = 0; i < 2000; ++i) {
    markup += "<i title='>'>w" + std::to_string(i) + (i % 3 == 0 ? "<b/>" : "<br >");
    words += (words.empty() ? "w" : " w") + std::to_string(i);
  }
  Document document = page(markup);
  EXPECT_EQ(visible_text(document), words);
  EXPECT_LE(depth_of(*document.root()), deepest);
}

TEST(HtmlDocumentTest, HidesScriptsWhereThePageIsTooDeep) {
  for (int depth = 240; depth < 270; ++depth) {
    Document document =
        page(repeated("<b>", depth) + "<script>hidden</script><style>hidden</style>" +
             "<title>hidden</title>seen");
    EXPECT_EQ(visible_text(document), "seen") << depth;
  }
}

TEST(HtmlDocumentTest, SurvivesTenMegabytesOfText) {
  const std::string text(10'000'000, 'x');
  Document document = page("<p>" + text + "</p>end");
  EXPECT_EQ(find_tag(*document.root(), "p")->children.at(0)->text.size(), text.size());
  EXPECT_EQ(document.body()->children.back()->text, "end");
}

TEST(HtmlDocumentTest, SurvivesTenMegabytesInsideTagsAndScripts) {
  const std::string text(10'000'000, 'x');
  EXPECT_EQ(visible_text(page("<p title='" + text + "'>end")), "end");
  EXPECT_EQ(visible_text(page("<script>" + text + "</script>end")), "end");
  EXPECT_EQ(visible_text(page("<!--" + text + "-->end")), "end");
  EXPECT_EQ(page("<td><input>" + text).inputs().at(0).label.size(), text.size());
}

TEST(HtmlDocumentTest, SurvivesManyInputsOfOneGroup) {
  constexpr int count = 50'000;
  Document document = page(repeated("<input type=radio name=r checked>x<br>", count));
  ASSERT_EQ(document.inputs().size(), std::size_t{count});
  EXPECT_TRUE(document.inputs().back().checked);
  EXPECT_EQ(std::ranges::count(document.inputs(), true, &Input::checked), 1);
}

TEST(HtmlDocumentTest, SurvivesPagesThatBreakOff) {
  for (std::size_t length = 0; length < question_page.size(); ++length) {
    Document document = page(std::string_view{question_page}.substr(0, length));
    ASSERT_LE(document.inputs().size(), 2u);
    if (document.root() != nullptr) {
      ASSERT_EQ(document.root()->tag, "html");
    }
  }
}

TEST(HtmlDocumentTest, WritesNothingToStandardError) {
  using namespace std::string_view_literals;
  testing::internal::CaptureStderr();
  page(question_page);
  page("<p><p></q><1><table></b>&foo;&#0;&#xD800;&#x110000;<a <b c=\"d><!-- <![CDATA[ x ]]> <?p");
  page("\0\xFF\xFE\xED\xA0\x80<p \0=\xFF>"sv);
  page("<?xml version='1.0' encoding='UTF-16'?><meta charset=ebcdic><p>x");
  page(repeated("<b>", 3000));
  page("<!DOCTYPE html SYSTEM \"http://exam.example/x.dtd\"><p>x<img src=http://exam.example/y>");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(HtmlDocumentTest, GivesTheSameTreeForTheSamePage) {
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(visible_text(page(question_page)), visible_text(page(question_page)));
    page(repeated("<b>", 3000));
  }
}

TEST(HtmlDocumentTest, NeverLosesAWordHoweverTagsAreMixed) {
  const std::vector<std::string> pieces = {
      "<p>",
      "</p>",
      "</p onblur=alert(\"hi\")>",
      "<b>",
      "</b>",
      "<i>",
      "</i>",
      "<center>",
      "</center>",
      "<table border=0>",
      "</table>",
      "<tr>",
      "</tr>",
      "<td >",
      "</td>",
      "<th>",
      "<ul>",
      "<li>",
      "</ul>",
      "<form name=frm>",
      "</form>",
      "</option>",
      "<option>",
      "<select>",
      "</select>",
      "<br>",
      "<hr>",
      "<html>",
      "</html>",
      "<head>",
      "</head>",
      "<body x=1>",
      "</body>",
      "</BODY>",
      "<frameset>",
      "</frameset>",
      "<zzexplanation>",
      "<div/>",
      "<a href=\"javascript:; void(' ');\"id=\"e\"onclick=f()>",
      "</a>",
      "<img src='a\\b.gif'>",
      "<input checked type=radio name=\"r\" value=V1>",
      "<input>",
      "<button>",
      "</button>",
      "<textarea>",
      "</textarea>",
      "<script>if a<b then x=\"</td>\"</script>",
      "<style>BODY{font-size: 12 pt}</style>",
      "<!-- comment -->",
      "<title>hidden</title>",
      "<meta x=y>",
      "<link rel=x>",
      "<dl><dt>",
      "<dd>",
      "</dl>",
      "<pre>",
      "</pre>",
      "<h1>",
      "</h2>",
      "<noscript>",
      "</noscript>",
      "<object>",
      "</object>",
      "<1>",
      "< ",
      "</ >",
      "<>",
      " & ",
      "&#;",
      "\r\n",
      "\t",
      "<caption>",
      "<col>",
      "<tbody>",
      "<label>",
      "<font size=2>",
      "</font>",
      "<iframe>",
      "</iframe>",
      "<svg>",
      "<p:q>",
      "<!DOCTYPE html>",
      "<?php x ?>",
      "</nothing>"};
  std::mt19937 random(20'240);
  for (int round = 0; round < 3000; ++round) {
    std::string markup;
    std::vector<std::string> words;
    const int length = static_cast<int>(random() % 60);
    for (int i = 0; i < length; ++i) {
      markup += pieces[random() % pieces.size()];
      if (random() % 2 != 0) continue;
      words.push_back("word" + std::to_string(i) + "x");
      markup += ' ' + words.back() + ' ';
    }
    const std::string text = visible_text(page(markup));
    std::size_t place = 0;
    for (const std::string& word : words) {
      place = text.find(word, place);
      ASSERT_NE(place, std::string::npos) << word << " of " << markup << "\nin " << text;
    }
  }
}

}  // namespace
}  // namespace practice::html
