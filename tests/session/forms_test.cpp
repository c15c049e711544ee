// The verbs that put a screen on the desk and take it away.
#include "session/forms.h"

#include <algorithm>

#include "robot/testing.h"

namespace practice {
namespace {

class RecordedScreen : public Screen {
 public:
  explicit RecordedScreen(std::string name) : Screen(std::move(name)) {}

  Label title;
  std::vector<std::string> events;
  std::function<void()> during_load;
  std::function<void()> during_unload;

  void design() override {
    title.caption = "as designed";
    events.emplace_back("design");
  }
  void load() override {
    events.emplace_back("load");
    if (during_load) during_load();
  }
  void activate() override { events.emplace_back("activate"); }
  void unload() override {
    events.emplace_back("unload");
    if (during_unload) during_unload();
  }
  void close_window() override {}
};

using Events = std::vector<std::string>;

class FormsTest : public testing::Test {
 protected:
  robot::World world;
  Forms forms{world.stage};
  RecordedScreen first{"Exhibit"};
  RecordedScreen second{"Diagram"};

  void SetUp() override {
    forms.enlist(Form::Exhibit, first);
    forms.enlist(Form::Diagram, second);
  }
};

TEST_F(FormsTest, AScreenIsLoadedOnceAndStaysHidden) {
  forms.load(Form::Exhibit);
  forms.load(Form::Exhibit);
  EXPECT_EQ(first.events, (Events{"design", "load"}));
  EXPECT_TRUE(forms.is_loaded(Form::Exhibit));
  EXPECT_FALSE(first.visible);
  EXPECT_EQ(forms.in_front(), nullptr);
}

TEST_F(FormsTest, ShowingLoadsAtTheFirstUse) {
  forms.show(Form::Exhibit);
  EXPECT_EQ(first.events, (Events{"design", "load", "activate"}));
  EXPECT_TRUE(first.visible);
  EXPECT_EQ(forms.in_front(), &first);
}

TEST_F(FormsTest, AScreenIsActivatedOnceForEachTimeItComesToTheFront) {
  forms.show(Form::Exhibit);
  forms.show(Form::Exhibit);
  EXPECT_EQ(first.events, (Events{"design", "load", "activate"}));
  forms.show(Form::Diagram);
  forms.show(Form::Exhibit);
  EXPECT_EQ(first.events, (Events{"design", "load", "activate", "activate"}));
}

TEST_F(FormsTest, AStudentsClickOnAnotherWindowActivatesIt) {
  forms.show(Form::Exhibit);
  forms.show(Form::Diagram);
  forms.came_to_front(first);
  EXPECT_EQ(forms.in_front(), &first);
  EXPECT_EQ(first.events.back(), "activate");
  forms.hide(Form::Diagram);
  forms.came_to_front(second);
  EXPECT_EQ(forms.in_front(), &first) << "a hidden window can not come to the front";
}

TEST_F(FormsTest, HidingDoesNotLoadAndDoesNotUnload) {
  forms.hide(Form::Exhibit);
  EXPECT_TRUE(first.events.empty());
  forms.show(Form::Exhibit);
  first.title.caption = "changed";
  forms.hide(Form::Exhibit);
  EXPECT_FALSE(first.visible);
  EXPECT_TRUE(forms.is_loaded(Form::Exhibit));
  EXPECT_EQ(forms.in_front(), nullptr);
  forms.show(Form::Exhibit);
  EXPECT_EQ(first.title.caption, "changed");
  EXPECT_EQ(first.events, (Events{"design", "load", "activate", "activate"}));
}

TEST_F(FormsTest, AnUnloadedScreenHasItsDesignStateWhenItIsLoadedAgain) {
  forms.show(Form::Exhibit);
  const int generation = first.generation;
  first.title.caption = "changed";
  first.window_state = WindowState::maximised;
  first.pointer = Pointer::hourglass;
  forms.unload(Form::Exhibit);
  EXPECT_FALSE(forms.is_loaded(Form::Exhibit));
  EXPECT_FALSE(first.visible);
  EXPECT_EQ(forms.in_front(), nullptr);
  forms.load(Form::Exhibit);
  EXPECT_EQ(first.title.caption, "as designed");
  EXPECT_EQ(first.window_state, WindowState::normal);
  EXPECT_EQ(first.pointer, Pointer::normal);
  EXPECT_NE(first.generation, generation);
}

TEST_F(FormsTest, UnloadingWhatIsNotLoadedDoesNothing) {
  forms.unload(Form::Exhibit);
  forms.show(Form::Exhibit);
  forms.unload(Form::Exhibit);
  forms.unload(Form::Exhibit);
  EXPECT_EQ(first.events, (Events{"design", "load", "activate", "unload"}));
}

TEST_F(FormsTest, AScreenThatUnloadsItselfWhileItGoesGoesOnce) {
  first.during_unload = [&] { forms.unload(Form::Exhibit); };
  forms.show(Form::Exhibit);
  forms.unload(Form::Exhibit);
  EXPECT_EQ(std::ranges::count(first.events, "unload"), 1);
}

TEST_F(FormsTest, AScreenThatUnloadsItselfWhileItLoadsIsNotShown) {
  first.during_load = [&] { forms.unload(Form::Exhibit); };
  forms.show(Form::Exhibit);
  EXPECT_FALSE(first.visible);
  EXPECT_EQ(first.events, (Events{"design", "load", "unload"}));
}

TEST_F(FormsTest, AScreenThatTheProgramDoesNotHaveIsPassedOver) {
  forms.show(Form::About1);
  forms.hide(Form::About1);
  forms.unload(Form::About1);
  EXPECT_FALSE(forms.is_loaded(Form::About1));
  EXPECT_EQ(forms.find(Form::About1), nullptr);
  EXPECT_EQ(forms.find("About1"), nullptr);
  EXPECT_EQ(forms.find("Diagram"), &second);
}

TEST_F(FormsTest, AModalScreenHoldsItsCallerUntilItIsHidden) {
  bool was_modal = false;
  world.stage.modal_user = [&](Screen& shown) {
    was_modal = shown.modal && shown.visible && forms.in_front() == &shown;
    forms.hide(Form::Diagram);
  };
  forms.show_modal(Form::Diagram);
  EXPECT_TRUE(was_modal);
  EXPECT_FALSE(second.modal);
  EXPECT_FALSE(second.visible);
}

}  // namespace
}  // namespace practice
