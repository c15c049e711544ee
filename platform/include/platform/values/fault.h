// A run-time fault: a plain decimal number and its text, as error.log records them.
//
// Steps of the program raise faults by throwing one; the four ways of meeting a fault are in
// session/fault_patterns.h. Failures of the standard library are turned into faults by
// fault_of_current_exception(), which is the only place that maps them.
#pragma once

#include <exception>
#include <string>
#include <system_error>

namespace practice {

class Fault : public std::exception {
 public:
  Fault(int number, std::string text);

  static Fault invalid_call();       ///< 5
  static Fault overflow();           ///< 6
  static Fault out_of_memory();      ///< 7
  static Fault out_of_range();       ///< 9
  static Fault division_by_zero();   ///< 11
  static Fault type_mismatch();      ///< 13
  static Fault file_not_found();     ///< 53
  static Fault disk_full();          ///< 61
  static Fault past_end_of_file();   ///< 62
  static Fault permission_denied();  ///< 70
  static Fault path_access();        ///< 75
  static Fault path_not_found();     ///< 76
  static Fault object_required();    ///< 424
  static Fault no_such_member();     ///< 438
  static Fault invalid_picture();    ///< 481
  static Fault of(std::error_code code);

  int number() const { return number_; }
  const std::string& text() const { return text_; }
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  int number_;
  std::string text_;
};

/// The fault that the exception now being handled stands for. Call inside a catch block.
Fault fault_of_current_exception();

}  // namespace practice
