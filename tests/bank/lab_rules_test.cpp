#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "bank_compiler/exercise.h"
#include "bank_compiler/lab.h"
#include "bank_compiler/labs.h"
#include "bank_compiler/plan.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/source.h"
#include "compiler_testing.h"

namespace practice::compiler {
namespace {

// A lab with one key of each sort.
constexpr std::string_view small_lab = R"lab(
device = [{ name = "Sw1" }, { name = "r1" }]
interface = [
  { device = "Sw1", kind = "port", n = "0/1-24", short = "Fa{n}", key = "fa{n}" },
  { device = "Sw1", kind = "svi", n = "1-4094", short = "Vlan{n}", key = "vlan{n}" },
  { device = "Sw1", kind = "vty", n = "0-15", short = "vty{n}", key = "vty{n}" },
  { device = "Sw1", kind = "console", n = "0", short = "con{n}", key = "con{n}" },
  { device = "r1", kind = "subif", n = "0/0.1-4094", short = "Gi{n}", key = "gi{n}" },
]
key = [
  { key = "{dev}_config", values = ["unchanged", "changed", "saved"] },
  { key = "vtp_mode", values = ["server", "transparent"] },
  { key = "{dev}_vlan{vlan}", values = ["created", "deleted"] },
  { key = "{dev}_vlan{vlan}_name", values = ["<name>"] },
  { key = "{dev}_user_{user}", values = ["<text>"] },
  { key = "{dev}_acl_{acl}_last", values = ["<vlan>"], result = false },
  { key = "{dev}_acl_{acl}_{seq}", values = ["<action> <from>", "<action> tcp <from> <to>"] },
  { key = "{dev}_route_{net}_{mask}", values = ["<net>"] },
  { key = "{dev}_map", values = ["<map>"] },
  { key = "{dev}_clock", values = ["<clock>"] },
  { key = "{dev}_lines", values = ["<lines>"] },
  { key = "{dev}_session_destination", values = ["<interface>"] },
  { key = "{if}_speed", on = ["port"], values = ["<speed>"] },
  { key = "{if}_storm", on = ["port"], values = ["<rise>", "<rise> <fall>"] },
  { key = "{if}_priority", on = ["port", "svi"], values = ["<priority>"] },
  { key = "{if}_allowed", on = ["port"], values = ["<vlans>"] },
  { key = "{if}_ip", values = ["<net>"] },
  { key = "{if}_mask", values = ["<mask>"] },
  { key = "{if}_mac_{mac}", on = ["port"], values = ["sticky"] },
  { key = "{if}_dscp", on = ["port"], values = ["dscp <dscp>"] },
  { key = "{if}_description", on = ["port"], values = ["<note>"] },
  { key = "{if}_password", on = ["console"], values = ["<password>"] },
]
derive = [
  { key = "{if}_status", on = ["port"], cases = [
    ["{if}_state=down", "disabled"],
    ["{if}_ip=", ""],
    ["connected"],
  ] },
  { key = "{if}_leg", on = ["subif"], cases = [["$({if}_vlan) $($({if}_ip)_{mask}) {short:12}"]] },
  { key = "{dev}_root{vlan}", cases = [["a=b", "{dev}"], ["port {if}"], ["VLAN {vlan}"]] },
  { key = "{dev}_ports", each = "port where {if}_vlan=1", item = "{short}", join = "runs" },
  { key = "{dev}_vty_ssh", each = "vty where {if}_transport=ssh", item = "{n}", join = "runs" },
  { key = "{dev}_sources", each = "port where {if}_mirror!=", item = "{short} $(x)", join = ", " },
  { key = "{dev}_speeds", each = "port", item = "{speed}", join = "," },
  { key = "{dev}_hidden", result = false, cases = [["yes"]] },
]
inner = [{ key = "{dev}_inside", cases = [["yes"]] }]

[form]
vlan = "number 1-4094"
vlans = "list 1-4094"
name = "word 8"
note = "text 12"
user = "name 6"
password = "word 6"
acl = "name 24"
seq = "number 0-1000"
action = "one of deny permit"
from = "endpoint"
to = "endpoint"
net = "address"
mask = "mask"
mac = "mac"
map = "numbers 3 0-63"
clock = "time of day"
lines = "lines vty"
interface = "interface"
speed = "one of 10 100 auto"
rise = "number 0-100"
fall = "number 0-100"
priority = "number 0-61440 step 4096"
dscp = "dscp"
)lab";

Lab lab_of(std::string_view text) {
  Faults faults;
  Lab lab = parse_lab(text, "3550.toml", faults);
  EXPECT_EQ(joined(faults), "");
  return lab;
}

TEST(TheLab, KnowsTheKeysOfItsResult) {
  const Lab lab = lab_of(small_lab);
  const auto has = [&](std::string_view key) {
    return verdict_on(key, "?", lab) != ResultVerdict::no_such_key;
  };
  for (const std::string_view key : {"sw1_config",
                                     "r1_config",
                                     " SW1_Config ",
                                     "vtp_mode",
                                     "sw1_vlan10",
                                     "sw1_vlan10_name",
                                     "sw1_user_anna",
                                     "sw1_acl_last_10",
                                     "sw1_route_10.1.0.0_255.255.0.0",
                                     "sw1_route_0.0.0.0_0.0.0.0",
                                     "sw1_fa0_1_speed",
                                     "sw1_fa0_24_speed",
                                     "sw1_vlan4094_priority",
                                     "sw1_con0_password",
                                     "r1_gi0_0.10_ip",
                                     "sw1_vty15_ip",
                                     "sw1_fa0_2_mac_0200.0000.00af",
                                     "sw1_fa0_3_status",
                                     "r1_gi0_0.4094_leg",
                                     "sw1_root10",
                                     "sw1_ports"}) {
    EXPECT_TRUE(has(key)) << key;
  }
  for (const std::string_view key : {"",
                                     "config",
                                     "sw2_config",
                                     "sw1_config_",
                                     "sw1_",
                                     "vtp_modes",
                                     "sw1_vtp_mode",
                                     "sw1_vlan0",
                                     "sw1_vlan4095",
                                     "sw1_vlan010",
                                     "sw1_vlan",
                                     "sw1_vlan10_names",
                                     "sw1_vlanten_name",
                                     "sw1_user_",
                                     "sw1_user_toolong",
                                     "sw1_user_a_b",
                                     "sw1_user_a,b",
                                     "sw1_acl_x_last",
                                     "sw1_acl_x_1001",
                                     "sw1_route_10.1.0.0_255.0.255.0",
                                     "sw1_route_10.1.0_255.0.0.0",
                                     "sw1_route_10.1.0.256_255.0.0.0",
                                     "sw1_fa0_25_speed",
                                     "sw1_fa0_0_speed",
                                     "sw1_fa0/1_speed",
                                     "sw1_fa1_1_speed",
                                     "r1_fa0_1_speed",
                                     "sw1_vlan10_speed",
                                     "sw1_con1_password",
                                     "sw1_fa0_2_mac_0200.0000.00ag",
                                     "sw1_fa0_2_mac_0200.0000",
                                     "r1_gi0_1.10_ip",
                                     "sw1_vlan10_status",
                                     "sw1_hidden",
                                     "sw1_inside"}) {
    EXPECT_FALSE(has(key)) << key;
  }
}

struct Values {
  std::string_view key;
  std::vector<std::string_view> possible;
  std::vector<std::string_view> impossible;
};

TEST(TheLab, KnowsTheValuesOfAKey) {
  const Lab lab = lab_of(small_lab);
  const std::vector<Values> table{
      {"sw1_config", {"saved", "SAVED", " saved "}, {"save", "saved twice", "<config>"}},
      {"sw1_vlan10_name", {"Staff", "a-b_c(1)"}, {"too long 1", "two words", "ninechars"}},
      {"sw1_acl_web_10",
       {"permit any", "deny host 10.0.0.1", "permit 10.0.0.0 0.0.0.255", "deny tcp any any",
        "permit tcp host 10.0.0.1 10.0.1.0 0.0.0.255"},
       {"allow any", "permit", "permit 10.0.0.1", "permit udp any any", "permit tcp any",
        "permit host any", "permit any 0.0.0.255"}},
      {"sw1_route_10.0.0.0_255.0.0.0",
       {"10.1.1.1", "0.0.0.0"},
       {"10.1.1", "10.1.1.1.1", "10.1.1.256", "10.01.1.1", "fa0/1"}},
      {"sw1_map", {"0 8 63"}, {"0 8", "0 8 16 24", "0 8 64", "0 8 x", "0  8 16"}},
      // Forms that the compiler does not know take anything.
      {"sw1_clock", {"noon", "12:00"}, {}},
      {"sw1_lines", {"0 4"}, {}},
      {"sw1_session_destination",
       {"Fa0/3", "vlan7", "Gi0/0.10"},
       {"FastEthernet0/3", "Fa0/25", "sw1_fa0_3", "Fa0_3"}},
      {"sw1_fa0_1_speed", {"10", "auto"}, {"1000", "of", "one", "a"}},
      {"sw1_fa0_1_storm", {"20", "20 8"}, {"20 8 4", "20 101", "twenty", "20 8 x"}},
      {"sw1_vlan7_priority", {"0", "4096", "61440"}, {"4097", "65536", "04096", "high", "-4096"}},
      {"sw1_fa0_1_allowed",
       {"1", "1,2", "1-3", "1,10-12,40", "2-4094"},
       {"0", "1-2", "1,2,3", "3,1", "1,1", "1-3,4", "1-3,4-6", "3-1", "1-4095", "1, 2", "1,",
        "none", "10-12-14"}},
      {"sw1_fa0_1_mask",
       {"255.255.255.0", "255.255.255.254", "0.0.0.0", "255.255.255.255"},
       {"255.0.255.0", "0.0.0.255", "24"}},
      {"sw1_fa0_1_mac_0200.0000.0001", {"sticky"}, {"configured"}},
      {"sw1_fa0_1_dscp",
       {"dscp ef", "dscp EF", "dscp af11", "dscp af43", "dscp cs7", "dscp default", "dscp 1",
        "dscp 63"},
       {"ef", "dscp 46", "dscp 8", "dscp 10", "dscp 38", "dscp 64", "dscp af14", "dscp af51",
        "dscp cs8", "dscp cs9x", "dscp gold"}},
      {"sw1_fa0_1_description", {"To Sw2, new"}, {"To a switch far away"}},
      {"sw1_con0_password", {"x"}, {"much.too.long"}},
      // The last text of each case, and no condition before it.
      {"sw1_fa0_1_status", {"disabled", "connected"}, {"sw1_fa0_1_state=down", "up"}},
      {"r1_gi0_0.1_leg", {"10 10.0.0.1 Gi0/0.1"}, {"10 Gi0/0.1", "10 10.0.0.1 Gi0/1.1"}},
      {"sw1_root10",
       {"Sw1", "r1", "port sw1_fa0_3", "VLAN 10"},
       {"sw2", "port", "port sw1_fa0_30", "VLAN x", "VLAN "}},
      {"sw1_ports",
       {"Fa0/1", "Fa0/1-3", "Fa0/1,Fa0/2,Fa0/22-24"},
       {"0/1", "Fa0/1-", "Fa0/1-x", "Fa0/1-2", "Fa0/9-3", "Fa0/22-25", "-3", "Fa0/1,",
        "Fa0/1 Fa0/2", "Fa0/25", "Vlan7"}},
      {"sw1_vty_ssh", {"0-15", "3", "0,1,5"}, {"all", "0-x", "16", "14-16"}},
      {"sw1_sources", {"Fa0/1 rx", "Fa0/1 rx, Fa0/2 both"}, {"Fa0/1", "Fa0/1 rx, both", "rx"}},
      {"sw1_speeds", {"10", "10,auto"}, {"10-100", "1000", "10,"}},
  };
  for (const auto& [key, possible, impossible] : table) {
    for (const std::string_view value : possible) {
      EXPECT_EQ(verdict_on(key, value, lab), ResultVerdict::possible) << key << "=" << value;
    }
    for (const std::string_view value : impossible) {
      EXPECT_EQ(verdict_on(key, value, lab), ResultVerdict::no_such_value) << key << "=" << value;
    }
  }
}

TEST(TheLab, SurvivesPartsOfAnotherForm) {
  for (const std::string_view text :
       {"", "device = 5\ninterface = [1]\nkey = [[], { key = 1 }]\nderive = {}\nform = []",
        "interface = [{ key = \"{n\", n = \"a-b-c\" }]\nkey = [{ key = \"$({if\" }]",
        "device = [{ name = \"a\" }]\nkey = [{ key = \"{dev}_x\", values = [1] }]\n"
        "derive = [{ key = \"{dev}_y\", cases = [[], 1, [2]], each = 3 }]\n"
        "[form]\nx = 1\ny = \"number\""}) {
    const Lab lab = lab_of(text);
    EXPECT_TRUE(lab.whole);
    EXPECT_NE(verdict_on("a_x", "1", lab), ResultVerdict::possible) << text;
    EXPECT_NE(verdict_on("a_y", "1", lab), ResultVerdict::possible) << text;
  }
}

TEST(TheLab, TakesNoNumberForARangeThatCanNotBeRead) {
  const Lab lab = lab_of(
      "device = [{ name = \"a\" }]\nkey = [{ key = \"{dev}_x\", values = [\"<x>\", \"<y>\"] }]\n"
      "[form]\nx = \"number\"\ny = \"list some\"");
  EXPECT_EQ(verdict_on("a_x", "1", lab), ResultVerdict::no_such_value);
}

constexpr std::string_view bank = R"([head]
author_address = "a@b.example"
test_description = "D"
exam_title = "T"
exam_version = "1"
has_categories = true
categories = ["Simulator Questions"]

[[row]]
category = 1
type = "single_answer"
question = "Sort these."
answers = ["2"]
diagrams = ["xxxdnd"]
explanation = "So."

[[row]]
category = 1
type = "single_answer"
question = "Configure it."
answers = [
  "vtp_mode=transparent",
  "[sw1_vlan7]created",
]
exhibits = ["", "3550"]
diagrams = ["xxsim"]
clue = "Switch#"
explanation = "So."
)";

constexpr std::string_view small_exercises = R"(exam = "heron"

[[exercise]]
number = 2
title = "Fields"
kind = "order"
instruction = "Put the fields in order."
items = ["Source", "Destination", "Check"]
targets = ["1st", "2nd"]
right = [[2, 1], [1, 2]]
)";

struct Outcome {
  std::string faults;
  Shortfalls shortfalls;
};

// Null for a file that is not written yet.
struct Files {
  const char* lab;
  const char* exercises;
};

Outcome check(std::string_view bank_text, const Files& files) {
  Faults faults;
  Outcome outcome;
  Labs labs;
  if (files.lab != nullptr) labs.by_name["3550"] = parse_lab(files.lab, "3550.toml", faults);
  if (files.exercises != nullptr) {
    labs.exercises_by_exam["heron"] = parse_exercises(files.exercises, "heron_drag.toml", faults);
  }
  const ExamSource exam{.extra = parse_bank(bank_text, "extra.toml", BankKind::extra, faults),
                        .labs = &labs};
  check_labs(exam, *plan_of("heron"), faults, outcome.shortfalls);
  outcome.faults = joined(faults);
  return outcome;
}

const Files good_files{small_lab.data(), small_exercises.data()};

TEST(TheLabRules, FindNoFaultInQuestionsThatTheirLabCanAnswer) {
  const Outcome outcome = check(bank, good_files);
  EXPECT_EQ(outcome.faults, "");
  EXPECT_EQ(outcome.shortfalls, Shortfalls{});
}

TEST(TheLabRules, NameTheConditionThatNoResultCanMeet) {
  struct Case {
    std::string_view from;
    std::string_view to;
    std::string_view faults;
  };
  const std::vector<Case> cases{
      {"vtp_mode", "vtp_modes", "extra.toml:22: the lab 3550 has no such key: \"vtp_modes\"\n"},
      {"[sw1_vlan7]created", "[sw1_vlan7x]created",
       "extra.toml:23: the lab 3550 has no such key: \"sw1_vlan7x\"\n"},
      {"=transparent", "=off",
       "extra.toml:22: the lab 3550 gives this key no such value: \"vtp_mode=off\"\n"},
      {"]created", "] made ",
       "extra.toml:23: the lab 3550 gives this key no such value: \"[sw1_vlan7] made \"\n"},
      {"[sw1_vlan7]created", "[ SW1_vlan7 ] Created", ""},
      {"\"2\"", "\"3\"", "extra.toml:13: no exercise of that number: 3\n"},
      // Conditions and numbers that have no form are for other rules.
      {"vtp_mode=transparent", "vtp_mode", ""},
      {"\"2\"", "\"two\"", ""},
      {"\"2\"", "\"2\", \"9\"", ""},
      {"\"3550\"", "\"3551\"", ""},
  };
  for (const auto& [from, to, faults] : cases) {
    const Outcome outcome = check(changed(bank, from, to), good_files);
    EXPECT_EQ(outcome.faults, faults) << from;
    EXPECT_EQ(outcome.shortfalls, Shortfalls{}) << from;
  }
}

TEST(TheLabRules, ListTheLabsThatAreStillToBeWritten) {
  const std::string twice = std::string(bank) + std::string(bank.substr(bank.find("[[row]]")));
  const Outcome outcome = check(twice, {nullptr, nullptr});
  EXPECT_EQ(outcome.faults, "");
  EXPECT_EQ(outcome.shortfalls,
            (Shortfalls{"heron labs: 3550 is missing", "heron labs: heron_drag is missing"}));
}

TEST(TheLabRules, HoldNoQuestionAgainstAFileThatCanNotBeRead) {
  const Outcome outcome = check(changed(bank, "vtp_mode", "x"), {"device = [", "exam = \"\xC0\""});
  EXPECT_EQ(outcome.shortfalls, Shortfalls{});
  EXPECT_TRUE(outcome.faults.starts_with("3550.toml:1: a lab must be valid TOML: "))
      << outcome.faults;
  EXPECT_TRUE(outcome.faults.ends_with("\nheron_drag.toml:1: text must be UTF-8: \"\\xC0\"\n"))
      << outcome.faults;
}

std::string falco_row(std::string_view marker, std::string_view rest) {
  return "[[row]]\ncategory = 1\ntype = \"single_answer\"\nquestion = \"Do this.\"\n"
         "explanation = \"So.\"\ndiagrams = [\"" +
         std::string(marker) + "\"]\n" + std::string(rest);
}

TEST_F(TheBankCompilerProgram, HoldsAnExamAgainstTheLabsThatItNames) {
  write_exam(*plan_of("falco"));
  const std::filesystem::path file = "data/banks/falco/extra.toml";
  const std::string head = read(file);
  const std::string labs = (root_ / "data/labs").generic_string();
  write(file, head + falco_row("xxxdnd", "answers = [\"7\"]\n"));
  write("data/labs/2950.toml", "no lab");
  write("data/labs/wren_drag.toml", "no exercises");
  EXPECT_EQ(compile_falco(), 0) << err_.str();

  write("data/labs/falco_drag.toml", "exam = \"wren\"\n");
  EXPECT_EQ(compile_falco(), 1);
  EXPECT_NE(err_.str().find("extra.toml:36: no exercise of that number: 7\n"), std::string::npos)
      << err_.str();
  EXPECT_NE(err_.str().find(labs + "/falco_drag.toml:1: a file of exercises is named after its "
                                   "exam: \"wren\"\n"),
            std::string::npos)
      << err_.str();
}

TEST_F(TheBankCompilerProgram, DependsOnTheLabsThatItRead) {
  write_exam(*plan_of("falco"));
  const std::filesystem::path file = "data/banks/falco/extra.toml";
  write(file, changed(read(file) + falco_row("xxsim",
                                             "answers = [\"vtp_mode=server\"]\n"
                                             "clue = \"x\"\nexhibits = [\"\", \"3550\"]"),
                      "category = 1\n", "category = 21\n"));
  write("data/labs/3550.toml", small_lab);
  write("data/labs/2950.toml", small_lab);
  write("data/labs/falco_drag.toml", "exam = \"falco\"\n");
  ASSERT_EQ(compile_falco(), 0) << err_.str();
  const std::string depfile = read("made here/falco.cpp.d");
  EXPECT_NE(depfile.find("data/labs/3550.toml"), std::string::npos) << depfile;
  EXPECT_NE(depfile.find("data/labs/falco_drag.toml"), std::string::npos) << depfile;
  EXPECT_EQ(depfile.find("data/labs/2950.toml"), std::string::npos) << depfile;
}

TEST_F(TheBankCompilerProgram, ChecksTheExercisesOfAllExams) {
  for (const ExamPlan& plan : plans) write_exam(plan);
  write("data/labs/wren_drag.toml", "exam = \"lark\"\n");
  EXPECT_EQ(call({"--check", root_.native()}), 1);
  EXPECT_EQ(err_.str(), (root_ / "data/labs/wren_drag.toml").generic_string() +
                            ":1: a file of exercises is named after its exam: \"lark\"\n");
}

}  // namespace
}  // namespace practice::compiler
