#include "book_setting/typography.h"

#include <string_view>

#include <gtest/gtest.h>

namespace practice::books {
namespace {

struct Polish {
  std::string_view typed;
  std::string_view printed;
};

TEST(TypographyTest, TypedSignsBecomePrintedOnes) {
  for (const Polish& polish : {
           Polish{"The port's name", "The port’s name"},
           Polish{"hosts' names", "hosts’ names"},
           Polish{"it \"has no loops\".", "it “has no loops”."},
           Polish{"(\"any\") and 'this'", "(“any”) and ‘this’"},
           Polish{"\"A\"", "“A”"},
           Polish{"at least 64 - 18 = 46", "at least 64 − 18 = 46"},
           Polish{"n(n - 1)/2", "n(n − 1)/2"},
           Polish{"-4.9 - (-7.1)", "−4.9 − (−7.1)"},
           Polish{"2 x (hello + 1) and 7 x 4096", "2 × (hello + 1) and 7 × 4096"},
           // These are no sums.
           Polish{"the class x runs from 1", "the class x runs from 1"},
           Polish{"802.1X, pins 1-2, 01-00-5E, one-way", "802.1X, pins 1-2, 01-00-5E, one-way"},
           Polish{"a - b", "a - b"},
       }) {
    EXPECT_EQ(polished(polish.typed), polish.printed);
  }
}

TEST(TypographyTest, CodeStaysAsItIsTyped) {
  Spans spans{{.text = "enter "}, {.text = "\"a\" - 1", .code = true}, {.text = "'s"}};
  polish(spans);
  EXPECT_EQ(spans[1].text, "\"a\" - 1");
  EXPECT_EQ(spans[2].text, "’s");
}

TEST(TypographyTest, ASignSeesItsNeighboursBeyondAMark) {
  Spans spans{{.text = "\""},
              {.text = "bold", .bold = true},
              {.text = "\" and 3 x "},
              {.text = "4", .italic = true}};
  polish(spans);
  EXPECT_EQ(spans[0].text, "“");
  EXPECT_EQ(spans[2].text, "” and 3 × ");
}

}  // namespace
}  // namespace practice::books
