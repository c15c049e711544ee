#include "bank_compiler/command_line.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "bank_compiler/labs.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/tool.h"
#include "bank_compiler/writer.h"

namespace practice::compiler {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view usage =
    "bank_compiler --exam EXAM --banks FOLDER --content FOLDER --book FOLDER --output FILE\n"
    "              [--labs FOLDER] [--pages FILE] [--depfile FILE]\n"
    "  writes the banks of an exam as C++ tables; without the folder of labs, simulator and\n"
    "  drag and drop questions are not held against it; without the page index of its book,\n"
    "  all references lead to page 1\n"
    "bank_compiler --check ROOT\n"
    "  checks the banks of all exams under ROOT/data, each for itself and against each other,\n"
    "  and lists what is missing, which is as bad as a broken rule\n";

ContentFiles files_in(const fs::path& folder) {
  ContentFiles files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code no_file;
    if (entry->is_regular_file(no_file)) files.insert(entry->path().filename().string());
  }
  return files;
}

fs::path bank_file(const fs::path& folder, BankKind kind) {
  return folder / std::string(name_of(kind)).append(".toml");
}

ExamSource read_exam(const fs::path& banks, const fs::path& book, Faults& faults) {
  return {.book = read_bank(bank_file(banks, BankKind::book), BankKind::book, faults),
          .extra = read_bank(bank_file(banks, BankKind::extra), BankKind::extra, faults),
          .full = read_bank(bank_file(banks, BankKind::full), BankKind::full, faults),
          .chapters = read_chapters(book)};
}

void print(Faults& faults, std::ostream& err) {
  sort_by_place(faults);
  for (const Fault& fault : faults) err << to_text(fault) << '\n';
}

// The form that make reads: blanks, "#" and "$" are escaped.
std::string in_depfile(const fs::path& file) {
  std::string text;
  std::error_code error;
  const fs::path full = fs::absolute(file, error);
  for (const char c : (error ? file : full).lexically_normal().generic_string()) {
    if (c == ' ' || c == '#') text += '\\';
    if (c == '$') text += '$';
    text += c;
  }
  return text;
}

// Every file whose loss or change can change the outcome.
std::string depfile_text(const fs::path& output, const fs::path& banks, const fs::path& content,
                         const ContentFiles& files, const ExamSource& exam) {
  std::string text = in_depfile(output) + ":";
  for (const BankKind kind : {BankKind::book, BankKind::extra, BankKind::full}) {
    text += " \\\n  " + in_depfile(bank_file(banks, kind));
  }
  for (const std::string& file : files) text += " \\\n  " + in_depfile(content / file);
  for (const fs::path& file : exam.chapters.files) text += " \\\n  " + in_depfile(file);
  if (exam.labs != nullptr) {
    for (const fs::path& file : exam.labs->files) text += " \\\n  " + in_depfile(file);
  }
  return text + "\n";
}

int compile(const ExamPlan& plan, const Options& options, std::ostream& err) {
  const fs::path banks = options.at("--banks");
  const fs::path content = options.at("--content");
  const fs::path output = options.at("--output");
  Faults faults;
  Shortfalls shortfalls;
  const ContentFiles files = files_in(content);
  ExamSource exam = read_exam(banks, options.at("--book"), faults);
  if (const auto pages = options.find("--pages"); pages != options.end()) {
    read_pages(pages->second, exam.chapters, faults);
  }
  Labs labs;
  if (const auto folder = options.find("--labs"); folder != options.end()) {
    labs = read_labs(folder->second, labs_of(exam), {std::string(plan.exam)}, faults);
    exam.labs = &labs;
  }
  check_exam(exam, plan, files, faults, shortfalls);
  if (!faults.empty()) {
    print(faults, err);
    remove_stale(output);
    return 1;
  }
  if (!write_file(output, write_tables(exam, plan), err)) return 1;
  const auto depfile = options.find("--depfile");
  if (depfile == options.end()) return 0;
  return write_file(depfile->second, depfile_text(output, banks, content, files, exam), err) ? 0
                                                                                             : 1;
}

// Book, extra and full bank.
std::string summary_of(const ExamSource& exam) {
  const std::size_t book = exam.book.rows.size();
  const std::size_t extra = exam.extra.rows.size();
  const auto categories = [](const BankSource& bank) {
    return std::to_string(bank.head.categories.entries.size());
  };
  return std::to_string(book) + ", " + std::to_string(extra) + ", " + std::to_string(book + extra) +
         " rows, " + categories(exam.book) + ", " + categories(exam.extra) + ", " +
         categories(exam.full) + " categories";
}

int check(const fs::path& root, std::ostream& out, std::ostream& err) {
  Faults faults;
  Shortfalls shortfalls;
  std::vector<ExamSource> exams;
  std::set<std::string> lab_names;
  std::set<std::string> exam_names;
  std::size_t rows = 0;
  for (const ExamPlan& plan : plans) {
    const fs::path banks = (root / "data" / "banks" / plan.exam).lexically_normal();
    exams.push_back(read_exam(banks, root / "data" / "books" / plan.exam, faults));
    lab_names.merge(labs_of(exams.back()));
    exam_names.emplace(plan.exam);
    rows += exams.back().book.rows.size() + exams.back().extra.rows.size();
  }
  const Labs labs =
      read_labs((root / "data" / "labs").lexically_normal(), lab_names, exam_names, faults);
  for (std::size_t i = 0; i < plans.size(); ++i) {
    exams[i].labs = &labs;
    check_exam(exams[i], plans[i], files_in(root / "data" / "exams" / plans[i].exam), faults,
               shortfalls);
  }
  check_simulator_counts(exams, faults, shortfalls);
  check_likeness(exams, faults);
  print(faults, err);
  for (const std::string& shortfall : shortfalls) out << shortfall << '\n';
  for (std::size_t i = 0; i < plans.size(); ++i) {
    out << plans[i].exam << ": " << summary_of(exams[i]) << '\n';
  }
  out << 3 * exams.size() << " banks, " << rows << " rows, ";
  if (!faults.empty()) {
    out << faults.size() << (faults.size() == 1 ? " fault\n" : " faults\n");
  } else if (!shortfalls.empty()) {
    out << "not complete\n";
  } else {
    out << "no rule broken\n";
  }
  return faults.empty() && shortfalls.empty() ? 0 : 1;
}

int run_options(const Options& options, std::ostream& out, std::ostream& err) {
  if (options.size() == 1 && options.contains("--check")) {
    return check(options.at("--check"), out, err);
  }
  constexpr std::array<std::string_view, 5> required{"--exam", "--banks", "--content", "--book",
                                                     "--output"};
  constexpr std::array<std::string_view, 3> optional{"--labs", "--pages", "--depfile"};
  const auto given = [&](std::string_view option) { return options.contains(option); };
  const auto known =
      std::ranges::count_if(required, given) + std::ranges::count_if(optional, given);
  if (!std::ranges::all_of(required, given) || std::cmp_not_equal(known, options.size())) {
    err << usage;
    return 2;
  }
  const ExamPlan* plan = plan_of(options.at("--exam"));
  if (plan == nullptr) {
    err << "no such exam: " << options.at("--exam") << '\n' << usage;
    return 2;
  }
  return compile(*plan, options, err);
}

}  // namespace

int run(std::span<const std::string_view> arguments, std::ostream& out, std::ostream& err) {
  if (arguments.size() == 1 && arguments[0] == "--help") {
    out << usage;
    return 0;
  }
  try {
    return run_options(options_in(arguments), out, err);
  } catch (const std::exception& fault) {
    err << "bank_compiler: " << fault.what() << '\n';
    return 1;
  }
}

}  // namespace practice::compiler
