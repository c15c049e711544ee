// The callback that hangs on an element of a page.
#include "run/html_event.h"

#include <vector>

#include <gtest/gtest.h>

namespace practice {
namespace {

struct Listener : Screen {
  Listener() : Screen("listener") {}
  void design() override {}
  void close_window() override {}
  void call_by_name(std::string_view method, std::string_view argument) override {
    if (method != "HTML_Click") {
      Screen::call_by_name(method, argument);
      return;
    }
    heard.emplace_back(argument);
  }

  std::vector<std::string> heard;
};

int fault_of(const clsHTMLEvent& event) {
  try {
    event.HTML_Event();
  } catch (const Fault& fault) {
    return fault.number();
  }
  return 0;
}

TEST(HtmlEvent, CallsTheMethodWithItsArgument) {
  Listener listener;
  clsHTMLEvent event;
  event.Event_Details(listener, "HTML_Click", "2");
  event.HTML_Event();
  event.HTML_Event();
  EXPECT_EQ(listener.heard, (std::vector<std::string>{"2", "2"}));
}

TEST(HtmlEvent, TheLastDetailsCount) {
  Listener first;
  Listener second;
  clsHTMLEvent event;
  event.Event_Details(first, "HTML_Click", "1");
  event.Event_Details(second, "HTML_Click", "3");
  event.HTML_Event();
  EXPECT_TRUE(first.heard.empty());
  EXPECT_EQ(second.heard, std::vector<std::string>{"3"});
}

TEST(HtmlEvent, AMethodThatTheTargetDoesNotHaveIsAFault) {
  Listener listener;
  clsHTMLEvent event;
  event.Event_Details(listener, "HTML_Clack", "1");
  EXPECT_EQ(fault_of(event), 438);
  EXPECT_TRUE(listener.heard.empty());
}

TEST(HtmlEvent, WithoutDetailsThereIsNoTarget) { EXPECT_EQ(fault_of(clsHTMLEvent()), 424); }

TEST(HtmlEvent, TheElementKeepsItsEventWhenTheMakerIsGone) {
  Listener listener;
  html::Document document;
  document.open();
  document.write("<p id=Exhibit1>one</p><p id=exhibit2>two</p><p id=Exhibit3>three</p>");
  document.close();
  wire_exhibit_links(document, listener, "HTML_Click");
  document.element_by_id("Exhibit3")->onclick();
  document.element_by_id("Exhibit1")->onclick();
  EXPECT_EQ(listener.heard, (std::vector<std::string>{"3", "1"}));
  EXPECT_FALSE(document.element_by_id("exhibit2")->onclick);
}

TEST(HtmlEvent, AnEmptyDocumentHasNothingToWire) {
  Listener listener;
  html::Document document;
  wire_exhibit_links(document, listener, "HTML_Click");
  EXPECT_EQ(document.root(), nullptr);
}

}  // namespace
}  // namespace practice
