#include <climits>
#include <cmath>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

#include "platform/values/fault.h"
#include "platform/values/integer.h"
#include "platform/values/slots.h"
#include "platform/values/text.h"

namespace practice {
namespace {

// 0 when the step raises no fault.
template <class Step>
int fault_of(Step step) {
  try {
    step();
  } catch (const Fault& fault) {
    return fault.number();
  }
  return 0;
}

template <class Exception>
Fault fault_from(const Exception& exception) {
  try {
    throw exception;
  } catch (...) {
    return fault_of_current_exception();
  }
}

TEST(IntegerTest, StartsAtZeroAndReadsAsAnInt) {
  EXPECT_EQ(Integer{}, 0);
  const int read = Integer{12};
  EXPECT_EQ(read, 12);
}

TEST(IntegerTest, KeepsBothEndsOfItsRange) {
  EXPECT_EQ(Integer{32767}, 32767);
  EXPECT_EQ(Integer{-32768}, -32768);
}

TEST(IntegerTest, RaisesOverflowWhenAStoredValueDoesNotFit) {
  EXPECT_EQ(fault_of([] { Integer{32768}; }), 6);
  EXPECT_EQ(fault_of([] { Integer{-32769}; }), 6);
  EXPECT_EQ(fault_of([] { Integer{INT_MAX}; }), 6);
  Integer kept = 5;
  EXPECT_EQ(fault_of([&] { kept = 40000; }), 6);
  EXPECT_EQ(kept, 5);
}

TEST(IntegerTest, CalculatesInsideItsRange) {
  EXPECT_EQ(Integer{32000} + Integer{767}, 32767);
  EXPECT_EQ(Integer{-32000} - Integer{768}, -32768);
  EXPECT_EQ(Integer{181} * Integer{181}, 32761);
  EXPECT_EQ(Integer{7} / Integer{2}, 3);
  EXPECT_EQ(Integer{-7} / Integer{2}, -3);
  EXPECT_EQ(Integer{5} + 2, 7);
  EXPECT_EQ(2 + Integer{5}, 7);
  EXPECT_EQ(Integer{5} - 2, 3);
  EXPECT_EQ(2 - Integer{5}, -3);
  EXPECT_EQ(Integer{5} * 2, 10);
  EXPECT_EQ(2 * Integer{5}, 10);
  EXPECT_EQ(Integer{5} / 2, 2);
  EXPECT_EQ(12 / Integer{5}, 2);
}

TEST(IntegerTest, RaisesOverflowWhenAResultLeavesTheRange) {
  EXPECT_EQ(fault_of([] { return Integer{32767} + Integer{1}; }), 6);
  EXPECT_EQ(fault_of([] { return Integer{32767} + 1; }), 6);
  EXPECT_EQ(fault_of([] { return 1 + Integer{32767}; }), 6);
  EXPECT_EQ(fault_of([] { return Integer{-32768} - 1; }), 6);
  EXPECT_EQ(fault_of([] { return -2 - Integer{32767}; }), 6);
  EXPECT_EQ(fault_of([] { return Integer{182} * Integer{182}; }), 6);
  EXPECT_EQ(fault_of([] { return 256 * Integer{128}; }), 6);
  EXPECT_EQ(fault_of([] { return Integer{-32768} / -1; }), 6);
}

TEST(IntegerTest, RaisesOverflowForAPartnerThatIsNoIntegerItself) {
  EXPECT_EQ(fault_of([] { return Integer{-10} + 32768; }), 6);
  EXPECT_EQ(fault_of([] { return Integer{0} * 40000; }), 6);
}

TEST(IntegerTest, RaisesDivisionByZero) {
  EXPECT_EQ(fault_of([] { return Integer{1} / Integer{0}; }), 11);
  EXPECT_EQ(fault_of([] { return Integer{0} / 0; }), 11);
  EXPECT_EQ(fault_of([] { return 1 / Integer{}; }), 11);
}

TEST(IntegerTest, AssignsWhatItCalculates) {
  Integer count = 10;
  count += 5;
  EXPECT_EQ(count, 15);
  count -= 20;
  EXPECT_EQ(count, -5);
  EXPECT_EQ(++count, -4);
  EXPECT_EQ(--count, -5);
}

TEST(IntegerTest, KeepsItsValueWhenAnAssignmentOverflows) {
  Integer highest = Integer::highest;
  EXPECT_EQ(fault_of([&] { ++highest; }), 6);
  EXPECT_EQ(fault_of([&] { highest += 1; }), 6);
  EXPECT_EQ(highest, 32767);
  Integer lowest = Integer::lowest;
  EXPECT_EQ(fault_of([&] { --lowest; }), 6);
  EXPECT_EQ(fault_of([&] { lowest -= 1; }), 6);
  EXPECT_EQ(lowest, -32768);
}

TEST(SlotsTest, HoldsEntriesFromZeroToTheLast) {
  Slots<int, 3> slots;
  for (int i = 0; i <= 3; ++i) EXPECT_EQ(slots[i], 0);
  slots[3] = 30;
  slots[0] = 1;
  const auto& read = slots;
  EXPECT_EQ(read[3], 30);
  EXPECT_EQ(read[0], 1);
  EXPECT_EQ(slots.last, 3);
}

TEST(SlotsTest, RaisesFault9ForAnIndexOutside) {
  Slots<int, 3> slots;
  const auto& read = slots;
  EXPECT_EQ(fault_of([&] { slots[4] = 1; }), 9);
  EXPECT_EQ(fault_of([&] { slots[-1] = 1; }), 9);
  EXPECT_EQ(fault_of([&] { return read[4]; }), 9);
  EXPECT_EQ(fault_of([&] { return read[INT_MIN]; }), 9);
}

TEST(SlotsTest, FillsAndCompares) {
  Slots<int, 2> a;
  Slots<int, 2> b;
  a.fill(7);
  EXPECT_NE(a, b);
  for (int i = 0; i <= 2; ++i) b[i] = 7;
  EXPECT_EQ(a, b);
}

TEST(FaultTest, CarriesNumberAndText) {
  const Fault fault{1234, "Something"};
  EXPECT_EQ(fault.number(), 1234);
  EXPECT_EQ(fault.text(), "Something");
  EXPECT_STREQ(fault.what(), "Something");
}

TEST(FaultTest, NamesTheFaultsOfTheProgram) {
  const struct {
    Fault fault;
    int number;
    const char* text;
  } cases[] = {
      {Fault::invalid_call(), 5, "Invalid procedure call or argument"},
      {Fault::overflow(), 6, "Overflow"},
      {Fault::out_of_memory(), 7, "Out of memory"},
      {Fault::out_of_range(), 9, "Subscript out of range"},
      {Fault::division_by_zero(), 11, "Division by zero"},
      {Fault::type_mismatch(), 13, "Type mismatch"},
      {Fault::file_not_found(), 53, "File not found"},
      {Fault::disk_full(), 61, "Disk full"},
      {Fault::past_end_of_file(), 62, "Input past end of file"},
      {Fault::permission_denied(), 70, "Permission denied"},
      {Fault::path_access(), 75, "Path/File access error"},
      {Fault::path_not_found(), 76, "Path not found"},
      {Fault::object_required(), 424, "Object required"},
      {Fault::no_such_member(), 438, "Object doesn't support this property or method"},
      {Fault::invalid_picture(), 481, "Invalid picture"},
  };
  for (const auto& expected : cases) {
    EXPECT_EQ(expected.fault.number(), expected.number);
    EXPECT_EQ(expected.fault.text(), expected.text);
  }
}

TEST(FaultTest, MapsErrorsOfTheFileSystem) {
  const auto number = [](std::errc code) { return Fault::of(std::make_error_code(code)).number(); };
  EXPECT_EQ(number(std::errc::no_such_file_or_directory), 53);
  EXPECT_EQ(number(std::errc::not_a_directory), 76);
  EXPECT_EQ(number(std::errc::permission_denied), 70);
  EXPECT_EQ(number(std::errc::operation_not_permitted), 70);
  EXPECT_EQ(number(std::errc::read_only_file_system), 70);
  EXPECT_EQ(number(std::errc::no_space_on_device), 61);
  EXPECT_EQ(number(std::errc::file_too_large), 61);
  EXPECT_EQ(number(std::errc::not_enough_memory), 7);
  EXPECT_EQ(number(std::errc::is_a_directory), 75);
}

TEST(FaultTest, MapsTheExceptionBeingHandled) {
  EXPECT_EQ(fault_from(Fault::type_mismatch()).number(), 13);
  EXPECT_EQ(fault_from(std::bad_alloc{}).number(), 7);
  EXPECT_EQ(fault_from(std::length_error{"x"}).number(), 7);
  EXPECT_EQ(fault_from(std::out_of_range{"x"}).number(), 9);
  EXPECT_EQ(fault_from(std::invalid_argument{"x"}).number(), 13);
  const auto missing = std::make_error_code(std::errc::no_such_file_or_directory);
  EXPECT_EQ(fault_from(std::system_error{missing}).number(), 53);
  EXPECT_EQ(fault_from(std::filesystem::filesystem_error{"x", missing}).number(), 53);
}

TEST(FaultTest, MakesAnInternalErrorOfEverythingElse) {
  const Fault fault = fault_from(std::runtime_error{"lost"});
  EXPECT_EQ(fault.number(), 51);
  EXPECT_EQ(fault.text(), "lost");
  EXPECT_EQ(fault_from(7).number(), 51);
}

TEST(TextTest, TrimsBlanksOnly) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("a"), "a");
  EXPECT_EQ(trim("    "), "");
  EXPECT_EQ(trim(""), "");
  EXPECT_EQ(trim(" \ta\r\n "), "\ta\r\n");
}

TEST(TextTest, ChangesTheCaseOfLetters) {
  const struct {
    const char* small;
    const char* capital;
  } alphabets[] = {
      {"abcxyz", "ABCXYZ"},
      {"àéîöøþ", "ÀÉÎÖØÞ"},
      {"āćěłńőřšťůźžÿ", "ĀĆĚŁŃŐŘŠŤŮŹŽŸ"},
      {"șț", "ȘȚ"},
      {"αβγδωϊϋ", "ΑΒΓΔΩΪΫ"},
      {"άέήίόύώ", "ΆΈΉΊΌΎΏ"},
      {"абвгяёђџ", "АБВГЯЁЂЏ"},
      {"ґқө", "ҐҚӨ"},
  };
  for (const auto& [small, capital] : alphabets) {
    EXPECT_EQ(upper(small), capital);
    EXPECT_EQ(lower(capital), small);
    EXPECT_EQ(upper(capital), capital);
    EXPECT_EQ(lower(small), small);
  }
}

TEST(TextTest, LeavesWhatHasNoCase) {
  for (const char* text : {"", "0123 .,;:@[`{~", "×÷ß", "日本語", "😀", "\t\r\n"}) {
    EXPECT_EQ(upper(text), text);
    EXPECT_EQ(lower(text), text);
  }
}

TEST(TextTest, ChangesTheLettersThatHaveNoPairOfTheirOwn) {
  EXPECT_EQ(upper("ς"), "Σ");
  EXPECT_EQ(upper("ı"), "I");
  EXPECT_EQ(lower("İ"), "i");
}

TEST(TextTest, KeepsTheNumberOfCharactersWhenItChangesTheCase) {
  for (unsigned code = 0x80; code < 0x800; ++code) {
    const std::string letter{static_cast<char>(0xC0 | (code >> 6)),
                             static_cast<char>(0x80 | (code & 0x3F))};
    EXPECT_EQ(character_count(upper(letter)), 1u) << code;
    EXPECT_EQ(character_count(lower(letter)), 1u) << code;
    EXPECT_EQ(lower(upper(lower(letter))), lower(upper(letter))) << code;
  }
}

TEST(TextTest, PassesBrokenTextThroughWhenItChangesTheCase) {
  const std::string_view broken[] = {"\xFF",
                                     "\x80",
                                     "\xC3",
                                     "\xE2\x82",
                                     "\xC0\x80",
                                     "\xE0\x80\x80",
                                     "\xED\xA0\x80",
                                     "\xF0\x80\x80\x80",
                                     "\xF4\x90\x80\x80",
                                     "\xF8\x88\x80\x80",
                                     "\xF0\x9F\x98"};
  for (const std::string_view text : broken) {
    EXPECT_EQ(upper(text), text);
    EXPECT_EQ(lower(text), text);
    const std::string amid = std::string("a").append(text).append("b");
    EXPECT_EQ(upper(amid), std::string("A").append(text).append("B"));
  }
}

TEST(TextTest, ReplacesEveryOccurrenceOnce) {
  EXPECT_EQ(replace_all("aXbXc", "X", "--"), "a--b--c");
  EXPECT_EQ(replace_all("XX", "X", "XX"), "XXXX");
  EXPECT_EQ(replace_all("aaa", "aa", "b"), "ba");
  EXPECT_EQ(replace_all("abc", "x", "y"), "abc");
  EXPECT_EQ(replace_all("abc", "b", ""), "ac");
  EXPECT_EQ(replace_all("abc", "", "y"), "abc");
  EXPECT_EQ(replace_all("", "x", "y"), "");
}

TEST(TextTest, FindsTextInsideText) {
  EXPECT_TRUE(contains("question", "est"));
  EXPECT_TRUE(contains("question", ""));
  EXPECT_FALSE(contains("question", "EST"));
  EXPECT_FALSE(contains("", "e"));
}

TEST(TextTest, ReadsTheLeadingNumber) {
  const struct {
    const char* text;
    double number;
  } cases[] = {{"12", 12}, {"12 min", 12}, {"  7x", 7},   {"\t7", 7}, {"-3.5%", -3.5},
               {"+4", 4},  {".5", 0.5},    {"-.5", -0.5}, {"3.", 3},  {"1e3", 1000},
               {"1e", 1},  {"0x10", 0},    {"1,5", 1},    {"007", 7}, {"12:30", 12}};
  for (const auto& [text, number] : cases) EXPECT_DOUBLE_EQ(number_in(text), number) << text;
}

TEST(TextTest, ReadsZeroWhereNoNumberStands) {
  for (const char* text : {"", "   ", "abc", "min 12", "-", "+", ".", "-.", "+-5", "--5", "inf",
                           "nan", "-inf", "infinity", "\n5"}) {
    EXPECT_EQ(number_in(text), 0) << text;
  }
}

TEST(TextTest, ReadsNumbersThatNoDoubleHolds) {
  EXPECT_EQ(number_in("1e999"), HUGE_VAL);
  EXPECT_EQ(number_in("-1e999"), -HUGE_VAL);
  EXPECT_EQ(number_in(std::string(400, '9')), HUGE_VAL);
  EXPECT_EQ(number_in(".1e999"), HUGE_VAL);
  EXPECT_EQ(number_in("1e-999"), 0);
  EXPECT_EQ(number_in("0." + std::string(400, '0') + "1"), 0);
}

TEST(TextTest, ReadsWholeNumbersRoundedToNearestEven) {
  EXPECT_EQ(integer_in("12 min"), 12);
  EXPECT_EQ(integer_in("2.5"), 2);
  EXPECT_EQ(integer_in("3.5"), 4);
  EXPECT_EQ(integer_in("-2.5"), -2);
  EXPECT_EQ(integer_in("2.51"), 3);
  EXPECT_EQ(integer_in("nothing"), 0);
  EXPECT_EQ(integer_in("32767.4"), 32767);
  EXPECT_EQ(integer_in("-32768.5"), -32768);
}

TEST(TextTest, RaisesOverflowForWholeNumbersOutOfRange) {
  EXPECT_EQ(fault_of([] { integer_in("32767.5"); }), 6);
  EXPECT_EQ(fault_of([] { integer_in("32768"); }), 6);
  EXPECT_EQ(fault_of([] { integer_in("-32769"); }), 6);
  EXPECT_EQ(fault_of([] { integer_in("1e999"); }), 6);
}

TEST(TextTest, WritesTheTextFormWithABlankForTheSign) {
  EXPECT_EQ(text_form(12), " 12");
  EXPECT_EQ(text_form(0), " 0");
  EXPECT_EQ(text_form(-12), "-12");
  EXPECT_EQ(text_form(INT_MIN), "-2147483648");
  EXPECT_EQ(trimmed_text_form(12), "12");
  EXPECT_EQ(trimmed_text_form(0), "0");
  EXPECT_EQ(trimmed_text_form(-12), "-12");
}

TEST(TextTest, WritesTenthsOnlyWhereThereAreSome) {
  EXPECT_EQ(text_form_tenths(59.9, "."), " 59.9");
  EXPECT_EQ(text_form_tenths(60, "."), " 60");
  EXPECT_EQ(text_form_tenths(59.96, "."), " 60");
  EXPECT_EQ(text_form_tenths(0.04, "."), " 0");
  EXPECT_EQ(text_form_tenths(-0.04, "."), " 0");
  EXPECT_EQ(text_form_tenths(-3.26, "."), "-3.3");
  EXPECT_EQ(text_form_tenths(-60, "."), "-60");
}

TEST(TextTest, CountsCharactersAndNotBytes) {
  EXPECT_EQ(character_count(""), 0u);
  EXPECT_EQ(character_count("abc"), 3u);
  EXPECT_EQ(character_count("Zoë"), 3u);
  EXPECT_EQ(character_count("日本語"), 3u);
  EXPECT_EQ(character_count("😀😀"), 2u);
}

TEST(TextTest, CountsEachByteOfBrokenTextByItself) {
  EXPECT_EQ(character_count("\xFF\xFE"), 2u);
  EXPECT_EQ(character_count("a\xC3"), 2u);
  EXPECT_EQ(character_count("\xC3(b"), 3u);
  EXPECT_EQ(character_count("\xE0\x80\x80"), 3u);
  EXPECT_EQ(character_count("\xED\xA0\x80"), 3u);
  EXPECT_EQ(character_count("\xF8\x88\x80\x80"), 4u);
}

TEST(TextTest, CutsBetweenCharacters) {
  EXPECT_EQ(first_characters("Zoë!", 3), "Zoë");
  EXPECT_EQ(first_characters("Zoë!", 2), "Zo");
  EXPECT_EQ(first_characters("日本語", 1), "日");
  EXPECT_EQ(first_characters("abc", 0), "");
  EXPECT_EQ(first_characters("abc", 50), "abc");
  EXPECT_EQ(first_characters("", 5), "");
  EXPECT_EQ(first_characters("\xFF\xFF", 1), "\xFF");
}

TEST(TextTest, KnowsTheFillInType) {
  EXPECT_TRUE(is_fill_in("Fill_In"));
  EXPECT_TRUE(is_fill_in("fill"));
  EXPECT_TRUE(is_fill_in("FILLER"));
  EXPECT_FALSE(is_fill_in("Fil"));
  EXPECT_FALSE(is_fill_in(" Fill"));
  EXPECT_FALSE(is_fill_in(""));
}

}  // namespace
}  // namespace practice
