#include "book_setting/lines.h"

#include <QTextLayout>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace practice::books {
namespace {

constexpr double width = design::text_width;

const std::string prose =
    "A frame that arrives on a trunk carries the number of its VLAN, and the switch looks the "
    "destination up in the table of that VLAN alone. If an entry names another port, the frame "
    "leaves by that port; if it names the port of arrival, the frame is discarded; and if there is "
    "no entry at all, the frame is flooded to every port of the VLAN but the one it came in on.";

std::vector<std::string> texts_of(const SetText& text) {
  std::vector<std::string> texts;
  for (const SetLine& line : text.lines) texts.push_back(line.layout->text().toStdString());
  return texts;
}

// As wide as it will be drawn.
double drawn_width(const SetLine& line) { return line.layout->lineAt(0).naturalTextWidth(); }

TEST(LinesTest, JustifiedLinesFillTheirWidthAllButTheLast) {
  const SetText text = set_lines({{.text = prose}}, styles::body, width, Setting::justified);
  ASSERT_GT(text.lines.size(), 3u);
  for (std::size_t i = 0; i + 1 < text.lines.size(); ++i) {
    EXPECT_NEAR(text.lines[i].width, width, 0.01);
    EXPECT_NEAR(drawn_width(text.lines[i]), width, 4);
  }
  EXPECT_LT(text.lines.back().width, width);
}

TEST(LinesTest, NoWordIsLostAtABreak) {
  for (const Setting setting :
       {Setting::justified, Setting::left, Setting::centred, Setting::right}) {
    std::string joined;
    for (const std::string& line :
         texts_of(set_lines({{.text = prose}}, styles::body, width / 2, setting))) {
      joined += (joined.empty() ? "" : " ") + line;
    }
    EXPECT_EQ(joined, prose);
  }
}

TEST(LinesTest, ANumberStaysWithItsUnit) {
  // Every width moves the breaks; none of them may fall behind the number.
  const std::string text =
      "The cable is 100 m long and the fiber 10 km, the loss is 2.4 dB at most and the rate 10 "
      "Mb/s.";
  for (double narrow = 900; narrow < 2600; narrow += 20) {
    for (const std::string& line :
         texts_of(set_lines({{.text = text}}, styles::body, narrow, Setting::left))) {
      EXPECT_FALSE(std::isdigit(static_cast<unsigned char>(line.back()))) << line;
    }
  }
}

TEST(LinesTest, BlanksInCodeAreNotStretched) {
  const Spans spans{{.text = "Enter "},
                    {.text = "show spanning-tree vlan 10", .code = true},
                    {.text = " on each of the switches, and then compare what the two of them "
                             "tell about the root of the tree."}};
  const SetText text = set_lines(spans, styles::body, width, Setting::justified);
  const SetLine& line = text.lines.front();
  const QTextLine set = line.layout->lineAt(0);
  const auto code = line.layout->text().indexOf(QStringLiteral("show"));
  const auto end = code + 26;
  const TextWidths natural =
      widths_of({{.text = "show spanning-tree vlan 10", .code = true}}, styles::body);
  EXPECT_NEAR(set.cursorToX(static_cast<int>(end)) - set.cursorToX(static_cast<int>(code)),
              natural.natural, 1);
}

TEST(LinesTest, AWordWiderThanTheLineIsTold) {
  const SetText text = set_lines({{.text = "a " + std::string(90, 'w') + " b"}}, styles::body,
                                 width, Setting::justified);
  EXPECT_EQ(text.too_wide.toStdString(), std::string(90, 'w'));
  EXPECT_TRUE(
      set_lines({{.text = prose}}, styles::body, width, Setting::justified).too_wide.isEmpty());
}

TEST(LinesTest, AListingOfAllColumnsFitsTheText) {
  const Spans line{{.text = std::string(76, 'M'), .code = true}};
  EXPECT_LE(widths_of(line, styles::listing).natural, width);
  EXPECT_EQ(set_lines(line, styles::listing, width, Setting::left).lines.size(), 1u);
}

}  // namespace
}  // namespace practice::books
