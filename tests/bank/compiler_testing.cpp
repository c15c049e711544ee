#include "compiler_testing.h"

#include <fstream>
#include <iterator>
#include <random>

#include "bank_compiler/command_line.h"
#include "bank_compiler/source.h"

namespace practice::compiler {
namespace {

namespace fs = std::filesystem;

constexpr auto book = BankKind::book;
constexpr auto extra = BankKind::extra;
constexpr auto full = BankKind::full;

std::string category(const ExamPlan& plan, BankKind kind, int number, int count) {
  if (kind != book && number == count) return std::string(plan.last_extra_category);
  if (kind == extra && plan.general_before_last && number == count - 1) return "General";
  for (const FixedCategory& fixed : plan.fixed_categories) {
    if (fixed.number == static_cast<std::size_t>(number)) return std::string(fixed.name);
  }
  return "Chapter " + std::to_string(number) + " Name";
}

}  // namespace

std::string joined(const Faults& faults) {
  std::string text;
  for (const Fault& fault : faults) text += to_text(fault) + "\n";
  return text;
}

std::string changed(std::string_view text, std::string_view from, std::string_view to) {
  std::string result(text);
  if (from.empty()) return result;
  const auto place = result.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  EXPECT_EQ(result.find(from, place + 1), std::string::npos) << from;
  return place == std::string::npos ? result : result.replace(place, from.size(), to);
}

TheBankCompilerProgram::TheBankCompilerProgram() {
  // Two builds may run their tests at the same time.
  do {
    root_ = fs::temp_directory_path() / ("bank_compiler_" + std::to_string(std::random_device()()));
  } while (!fs::create_directory(root_));
}

TheBankCompilerProgram::~TheBankCompilerProgram() { fs::remove_all(root_); }

void TheBankCompilerProgram::write(const fs::path& file, std::string_view text) const {
  fs::create_directories((root_ / file).parent_path());
  std::ofstream(root_ / file, std::ios::binary) << text;
}

std::string TheBankCompilerProgram::read(const fs::path& file) const {
  std::ifstream stream(root_ / file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void TheBankCompilerProgram::write_exam(const ExamPlan& plan) const {
  for (const BankKind kind : {book, extra, full}) {
    const int count = kind == book    ? plan.book_categories
                      : kind == extra ? plan.extra_categories
                                      : plan.full_categories;
    std::string text =
        "[head]\nauthor_address = \"a@b.example\"\nexam_title = \"T\"\nexam_version = \"1\"\n";
    if (kind != full || plan.full_has_description) text += "test_description = \"D\"\n";
    const bool categories = kind != extra || plan.extra_has_categories;
    text += std::string("has_categories = ") + (categories ? "true" : "false");
    text += "\ncategories = [\n";
    for (int i = 1; i <= count; ++i) text += "  \"" + category(plan, kind, i, count) + "\",\n";
    write(fs::path("data/banks") / plan.exam / std::string(name_of(kind)).append(".toml"),
          text + "]\n");
  }
}

int TheBankCompilerProgram::call(const std::vector<std::string_view>& arguments) {
  out_.str("");
  err_.str("");
  return run(arguments, out_, err_);
}

int TheBankCompilerProgram::compile_falco() {
  const std::string banks = (root_ / "data/banks/falco").string();
  const std::string content = (root_ / "data/exams/falco").string();
  const std::string book_folder = (root_ / "data/books/falco").string();
  const std::string labs = (root_ / "data/labs").string();
  const std::string pages = (root_ / "pages.toml").string();
  const std::string output = (root_ / "made here/falco.cpp").string();
  const std::string depfile = output + ".d";
  std::vector<std::string_view> arguments{"--exam",    "falco", "--banks",   banks,
                                          "--content", content, "--book",    book_folder,
                                          "--output",  output,  "--depfile", depfile};
  if (fs::exists(labs)) arguments.insert(arguments.end(), {"--labs", labs});
  if (fs::exists(pages)) arguments.insert(arguments.end(), {"--pages", pages});
  return call(arguments);
}

}  // namespace practice::compiler
