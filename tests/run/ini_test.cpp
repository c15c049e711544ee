// One key of an INI text, as the simulators write it.
#include "run/ini.h"

#include <gtest/gtest.h>

namespace practice {
namespace {

struct IniCase {
  const char* story;
  const char* ini;
  const char* section;
  const char* key;
  /// Null when there is no such key.
  const char* value;
};

TEST(Ini, OneKeyOfOneSection) {
  const IniCase cases[] = {
      {"as written", "[Answer]\r\nresult=Success\r\n", "Answer", "result", "Success"},
      {"any case", "[ANSWER]\nReSuLt=Success\n", "answer", "result", "Success"},
      {"the value keeps its case", "[a]\nk=MiXed\n", "A", "K", "MiXed"},
      {"no line end at the end", "[a]\nk=v", "a", "k", "v"},
      {"blanks around everything", "  [ a ]  \n  k  =  v w  \r\n", "a", "k", "v w"},
      {"blanks around the wanted names", "[a]\nk=v\n", " a ", " k ", "v"},
      {"tabs", "[a]\n\tk\t=\tv\t\n", "a", "k", "v"},
      {"the section further down", "[x]\nk=1\n[a]\nk=2\n", "a", "k", "2"},
      {"the first of two keys", "[a]\nk=1\nk=2\n", "a", "k", "1"},
      {"the first of two sections", "[a]\nj=1\n[b]\n[a]\nk=2\n", "a", "k", nullptr},
      {"no such key", "[a]\nk=1\n", "a", "j", nullptr},
      {"no such section", "[a]\nk=1\n", "b", "k", nullptr},
      {"a key in front of all sections", "k=1\n[a]\n", "a", "k", nullptr},
      {"a key is more than its beginning", "[a]\nkey=1\n", "a", "k", nullptr},
      {"an empty value is a value", "[a]\nk=\n", "a", "k", ""},
      {"a value holds the rest of the line", "[a]\nk=x=y;z\n", "a", "k", "x=y;z"},
      {"a comment", "[a]\n;k=1\nk=2\n", "a", "k", "2"},
      {"a line without a value", "[a]\nk\nk=2\n", "a", "k", "2"},
      {"empty lines", "\r\n[a]\r\n\r\nk=2\r\n", "a", "k", "2"},
      {"one pair of quotes goes", "[a]\nk=\"v \"\n", "a", "k", "v "},
      {"single quotes too", "[a]\nk='v'\n", "a", "k", "v"},
      {"one quote stays", "[a]\nk=\"v\n", "a", "k", "\"v"},
      {"unlike quotes stay", "[a]\nk=\"v'\n", "a", "k", "\"v'"},
      {"a lone quote", "[a]\nk=\"\n", "a", "k", "\""},
      {"a head that is not closed", "[a\nk=1\n", "a", "k", nullptr},
      {"a key with blanks inside", "[general]\nip address=10.0.0.1\n", "general", "IP Address",
       "10.0.0.1"},
      {"nothing at all", "", "a", "k", nullptr},
  };
  for (const IniCase& c : cases) {
    const auto value = ini_value(c.ini, c.section, c.key);
    EXPECT_EQ(value.has_value(), c.value != nullptr) << c.story;
    if (value && c.value != nullptr) {
      EXPECT_EQ(*value, c.value) << c.story;
    }
  }
}

TEST(Ini, AnyBytesAreTaken) {
  const std::string bytes("[a]\n\xff\x00=\x01\nk=\xfe\xff\n", 14);
  EXPECT_EQ(ini_value(bytes, "a", "k"), "\xfe\xff");
}

}  // namespace
}  // namespace practice
