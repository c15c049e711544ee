// The about box, and the notice that stands there while the program starts.
#pragma once

#include "platform/screen.h"
#include "session/program.h"

namespace practice {

struct AboutControls {
  /// A reseller's picture.
  Picture Image1;
  Label Label1;
  Label Label2;
  Label Label4;
  Label Label5;
  /// Shown in the book edition: the publisher's copyright, and the button to its support.
  Frame Frame1;
  Label Label3;
  Button Command1;
  Button hmi_about_exit;
  Button Command3;
};

class About1 : public Screen, public AboutControls {
 public:
  explicit About1(Program& program);

  void design() override;
  void load() override;
  void close_window() override;

 private:
  void mail_support();

  Program& program_;
};

struct LoadingControls {
  Label Label1;
  Label Label2;
};

class Loading : public Screen, public LoadingControls {
 public:
  Loading();

  void design() override;
  /// There is nothing to close before the program has started.
  void close_window() override {}
};

}  // namespace practice
