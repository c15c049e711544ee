#include "platform/values/fault.h"

#include <filesystem>
#include <new>
#include <stdexcept>
#include <utility>

namespace practice {

Fault::Fault(int number, std::string text) : number_(number), text_(std::move(text)) {}

Fault Fault::invalid_call() { return {5, "Invalid procedure call or argument"}; }
Fault Fault::overflow() { return {6, "Overflow"}; }
Fault Fault::out_of_memory() { return {7, "Out of memory"}; }
Fault Fault::out_of_range() { return {9, "Subscript out of range"}; }
Fault Fault::division_by_zero() { return {11, "Division by zero"}; }
Fault Fault::type_mismatch() { return {13, "Type mismatch"}; }
Fault Fault::file_not_found() { return {53, "File not found"}; }
Fault Fault::disk_full() { return {61, "Disk full"}; }
Fault Fault::past_end_of_file() { return {62, "Input past end of file"}; }
Fault Fault::permission_denied() { return {70, "Permission denied"}; }
Fault Fault::path_access() { return {75, "Path/File access error"}; }
Fault Fault::path_not_found() { return {76, "Path not found"}; }
Fault Fault::object_required() { return {424, "Object required"}; }
Fault Fault::no_such_member() { return {438, "Object doesn't support this property or method"}; }
Fault Fault::invalid_picture() { return {481, "Invalid picture"}; }

Fault Fault::of(std::error_code code) {
  if (code == std::errc::no_such_file_or_directory) return file_not_found();
  if (code == std::errc::not_a_directory) return path_not_found();
  if (code == std::errc::permission_denied || code == std::errc::operation_not_permitted ||
      code == std::errc::read_only_file_system)
    return permission_denied();
  if (code == std::errc::no_space_on_device || code == std::errc::file_too_large)
    return disk_full();
  if (code == std::errc::not_enough_memory) return out_of_memory();
  return path_access();
}

Fault fault_of_current_exception() {
  try {
    throw;
  } catch (const Fault& fault) {
    return fault;
  } catch (const std::filesystem::filesystem_error& error) {
    return Fault::of(error.code());
  } catch (const std::system_error& error) {
    return Fault::of(error.code());
  } catch (const std::bad_alloc&) {
    return Fault::out_of_memory();
  } catch (const std::length_error&) {
    return Fault::out_of_memory();
  } catch (const std::out_of_range&) {
    return Fault::out_of_range();
  } catch (const std::invalid_argument&) {
    return Fault::type_mismatch();
  } catch (const std::exception& error) {
    return {51, error.what()};
  } catch (...) {
    return {51, "Internal error"};
  }
}

}  // namespace practice
