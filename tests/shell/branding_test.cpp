// The files beside the program that make it a reseller's or a partner's.
#include <gmock/gmock.h>

#include "platform/values/text.h"
#include "robot/testing.h"

namespace practice {
namespace {

constexpr std::size_t twenty_megabytes = 20'000'000;

std::string repeated(std::string_view piece, std::size_t bytes) {
  std::string result;
  result.reserve(bytes + piece.size());
  while (result.size() < bytes) result += piece;
  return result;
}

std::string every_byte() {
  std::string result;
  for (int byte = 0; byte < 256; ++byte) result += static_cast<char>(byte);
  return result;
}

class BrandingTest : public robot::StudentTest {
 protected:
  Welcome& welcome() { return robot.app().welcome(); }
  Branding& branding() { return robot.program().branding; }

  void put(std::string_view path, std::string_view content) {
    robot.world.files.write(path, content);
  }
  void start_as_reseller(std::string_view content) {
    put("oem.oem", content);
    start();
  }
  void start_with_partner_file(std::string_view content) {
    put(partner_file, content);
    start();
  }
  int faults_of_the_start() {
    const std::string log = file("error.log");
    int count = 0;
    for (std::size_t place = 0; (place = log.find("Welcome form load()", place)) != log.npos;
         ++place) {
      ++count;
    }
    return count;
  }

  static constexpr const char* partner_file = "\\program\\bw_falco.log";
};

TEST_F(BrandingTest, WithoutFilesBesideItTheProgramIsTheMakers) {
  start();
  EXPECT_EQ(branding().oem_active, 0);
  EXPECT_FALSE(branding().partner_found);
  EXPECT_EQ(branding().partner_edition, 0);
  EXPECT_EQ(welcome().Label6.caption, " Practice Test for:");
  EXPECT_FALSE(welcome().lblOEMGreeting.visible);
  EXPECT_FALSE(welcome().Image2.visible);
}

TEST_F(BrandingTest, AResellersWordStandsInFrontOnlyWhenItIsTheKnownOneAndNotTheMakers) {
  const struct {
    const char* content;
    int active;
    const char* caption;
  } cases[] = {{"eTestCraft\r\nMARLO\r\n", 0, " Practice Test for:"},
               {"eTestCraft\r\nmarlo \r\n", 0, " Practice Test for:"},
               {"eTestCraft\r\n   Marlo   \r\n", 0, " Practice Test for:"},
               {"eTestCraft\nMarlo", 0, " Practice Test for:"},
               {"eTestCraft\r\nMARLO Software\r\n", 1, "TestCraft Practice Test for:"},
               {"etestcraft\r\nSomebody\r\n", 1, "TestCraft Practice Test for:"},
               {"ETESTCRAFT\r\nSomebody\r\n", 1, "TestCraft Practice Test for:"},
               {"eTestCraft\r\n", 1, "TestCraft Practice Test for:"},
               {"eTestCraft", 1, "TestCraft Practice Test for:"},
               {"eTestCraft\r\n\r\nMARLO\r\n", 1, "TestCraft Practice Test for:"},
               {" eTestCraft\r\nSomebody\r\n", 1, " Practice Test for:"},
               {"eTestCrafts\r\nSomebody\r\n", 1, " Practice Test for:"},
               {"Somebody\r\neTestCraft\r\n", 1, " Practice Test for:"},
               {"", 1, " Practice Test for:"}};
  for (const auto& expected : cases) {
    start_as_reseller(expected.content);
    EXPECT_EQ(branding().oem_active, expected.active) << expected.content;
    EXPECT_EQ(welcome().Label6.caption, expected.caption) << expected.content;
  }
}

TEST_F(BrandingTest, TheResellersWordIsKeptAsItStands) {
  start_as_reseller(" My Word \r\n My House \r\n");
  EXPECT_EQ(branding().oem_name, " My Word ");
  EXPECT_EQ(branding().oem_owner, " My House ");
}

TEST_F(BrandingTest, AResellersTestKeepsItsNameOnTheQuestions) {
  start_as_reseller("eTestCraft\r\nSomebody\r\n");
  start_test();
  EXPECT_TRUE(quest().caption.starts_with("TestCraft Practice Test for: ")) << quest().caption;
}

TEST_F(BrandingTest, TheResellersFileLiesInTheWorkingFolderAndThePartnersBesideTheProgram) {
  robot.world.files.working_folder = "\\work";
  put("\\program\\oem.oem", "eTestCraft\r\nSomebody\r\n");
  put("\\work\\bw_falco.log", "MRL_kws\r\n");
  start();
  EXPECT_EQ(branding().oem_active, 0);
  EXPECT_FALSE(branding().partner_found);
  put("\\work\\oem.oem", "eTestCraft\r\nSomebody\r\n");
  put("\\program\\bw_falco.log", "MRL_kws\r\n");
  start();
  EXPECT_EQ(branding().oem_active, 1);
  EXPECT_TRUE(branding().partner_found);
}

TEST_F(BrandingTest, APartnerIsFoundByItsCodeBehindALine) {
  const struct {
    const char* content;
    const char* code;
  } cases[] = {{"", ""},
               {"nothing to see\r\n", ""},
               {"skq\r\nkws\r\n", ""},
               {"MRL_\r\nskq\r\n", ""},
               {"MRL-skq\r\n", ""},
               {"MRL_sk\r\nq\r\n", ""},
               {"MRL_skq\r\n", "skq"},
               {"mrl_SKQ\r\n", "skq"},
               {"other_SkQ_more", "skq"},
               {"installed\r\nby\r\nMRL_KWS\r\n", "kws"},
               {"MRL_kws\r\nMRL_skq\r\n", "kws"},
               {"MRL_skq\r\nMRL_kws\r\n", "skq"},
               {"MRL_skq MRL_kws\r\n", "kws"},
               {"MRL_skq\r\nMRL_zzz\r\n", "skq"},
               {"MRL_zzz\nMRL_skq\n", "skq"}};
  for (const auto& expected : cases) {
    start_with_partner_file(expected.content);
    const std::string code = expected.code;
    EXPECT_EQ(branding().partner_found, !code.empty()) << expected.content;
    EXPECT_EQ(branding().partner_code, code) << expected.content;
    EXPECT_EQ(welcome().lblOEMGreeting.visible, code == "kws") << expected.content;
    EXPECT_EQ(welcome().Image2.visible, code == "skq") << expected.content;
  }
}

TEST_F(BrandingTest, EachExamHasAPartnerFileOfItsOwn) {
  put("\\program\\bw_robin.log", "MRL_kws\r\n");
  start("46000");
  EXPECT_FALSE(branding().partner_found);
  start("46002");
  EXPECT_TRUE(branding().partner_found);
}

TEST_F(BrandingTest, OnePartnerIsGreetedAndTheOtherShowsItsPicture) {
  put("\\program\\skyquizlogo.jpg", "jpg");
  start_with_partner_file("MRL_kws\r\n");
  EXPECT_EQ(welcome().lblOEMGreeting.caption, "Jointly Offered with Kestrel World");
  EXPECT_EQ(welcome().Image2.file, "");
  start_with_partner_file("MRL_skq\r\n");
  EXPECT_EQ(welcome().Image2.file, "\\program\\skyquizlogo.jpg");
  EXPECT_EQ(welcome().lblOEMGreeting.caption, "");
}

TEST_F(BrandingTest, ThePartnersCodeTakesThePlaceOfTheResellersWord) {
  put("oem.oem", "eTestCraft\r\nSomebody\r\n");
  start_with_partner_file("MRL_kws\r\n");
  EXPECT_EQ(branding().oem_active, 1);
  EXPECT_EQ(branding().oem_name, "kws");
  EXPECT_EQ(welcome().Label6.caption, " Practice Test for:");
}

TEST_F(BrandingTest, APartnersPicturesStandOnTheOptionsAndBesideTheQuestions) {
  for (const char* name : {"FALCO_photo.jpg", "skyquizpick.jpg", "skyquizside.jpg"}) {
    put(std::string("\\program\\") + name, "jpg");
  }
  const struct {
    const char* partner_line;
    bool has_pictures;
  } cases[] = {{"MRL_skq\r\n", true}, {"MRL_kws\r\n", false}, {"nobody\r\n", false}};
  for (const auto& expected : cases) {
    start_with_partner_file(expected.partner_line);
    start_test();
    const bool partner = expected.has_pictures;
    EXPECT_EQ(pick_a_quiz().SKQ_P_A_Q.visible, partner) << expected.partner_line;
    EXPECT_EQ(pick_a_quiz().Marlo_P_A_Q.visible, !partner) << expected.partner_line;
    EXPECT_EQ(pick_a_quiz().SKQ_P_A_Q.file, partner ? "\\program\\skyquizpick.jpg" : "");
    EXPECT_EQ(pick_a_quiz().Marlo_P_A_Q.file, partner ? "" : "\\program\\FALCO_photo.jpg");
    EXPECT_EQ(quest().skq_side.visible, partner) << expected.partner_line;
    EXPECT_EQ(quest().skq_side.file, partner ? "\\program\\skyquizside.jpg" : "");
  }
}

TEST_F(BrandingTest, MissingPicturesOfAPartnerLeaveAPlaceWithoutOne) {
  start_with_partner_file("MRL_skq\r\n");
  EXPECT_EQ(welcome().Image2.file, "");
  start_test();
  EXPECT_EQ(pick_a_quiz().SKQ_P_A_Q.file, "");
  EXPECT_EQ(quest().skq_side.file, "");
  EXPECT_TRUE(quest().visible);
  EXPECT_TRUE(robot.world.messages.shown.empty());
}

TEST_F(BrandingTest, AMissingSplashIsOneLineOfTheLogAndAPresentOneIsNone) {
  put("\\program\\FALCO_front_cover.jpg", "jpg");
  start();
  EXPECT_EQ(faults_of_the_start(), 1);
  EXPECT_EQ(welcome().Image1.file, "");
  start();
  EXPECT_EQ(faults_of_the_start(), 2);
  put("oemsplash.jpg", "jpg");
  start();
  EXPECT_EQ(faults_of_the_start(), 2);
  EXPECT_EQ(welcome().Image1.file, "oemsplash.jpg");
  EXPECT_FALSE(welcome().Image1.visible) << "the cover stands in its place";
}

TEST_F(BrandingTest, TheTestsNameAndAuthorAreThereThoughTheCoverHidesThem) {
  start();
  EXPECT_EQ(welcome().test_name.caption, "Brightwater JASPER FALCO");
  EXPECT_NE(welcome().author_name2.caption, "");
  EXPECT_FALSE(welcome().test_name.visible);
  EXPECT_FALSE(welcome().author_name2.visible);
}

TEST_F(BrandingTest, ThePartnerPublishersEditionHasAWelcomeScreenOfItsOwn) {
  put("\\program\\haldenlearnsplash.jpg", "jpg");
  start();
  branding().partner_edition = 8080;
  // The start picture, which this edition's layout would show, begins the screen anew.
  robot.control("Welcome", "HMI_Start").click();
  EXPECT_FALSE(pick_a_quiz().loaded);
  EXPECT_TRUE(welcome().visible);
  EXPECT_EQ(welcome().Label6.caption, "Halden Learning's Practice Test for:");
  EXPECT_TRUE(welcome().Image2.visible);
  EXPECT_EQ(welcome().Image2.file, "\\program\\haldenlearnsplash.jpg");
  EXPECT_TRUE(welcome().Label3.visible);
  EXPECT_EQ(welcome().Label3.caption, "Powered By Marlo Software, Inc.");
  EXPECT_EQ(welcome().bounds.width, 7390);
  EXPECT_EQ(welcome().bounds.height, 6630);
  EXPECT_EQ(welcome().Command1.bounds.width, 400);
}

TEST_F(BrandingTest, ThePartnerPublishersNameWinsOverTheResellers) {
  start_as_reseller("eTestCraft\r\nSomebody\r\n");
  branding().partner_edition = 8080;
  robot.control("Welcome", "HMI_Start").click();
  EXPECT_EQ(welcome().Label6.caption, "Halden Learning's Practice Test for:");
}

TEST_F(BrandingTest, FilesOfAnyContentDoNotHoldUpTheStart) {
  const std::string contents[] = {every_byte(), repeated(every_byte(), twenty_megabytes),
                                  repeated("x", twenty_megabytes),
                                  repeated("\n", twenty_megabytes)};
  for (const std::string& content : contents) {
    put("oem.oem", content);
    start_with_partner_file(content);
    EXPECT_TRUE(welcome().visible);
    EXPECT_EQ(welcome().Label6.caption, " Practice Test for:");
    EXPECT_EQ(branding().oem_active, 1);
    EXPECT_FALSE(branding().partner_found);
    EXPECT_TRUE(robot.world.messages.shown.empty());
  }
}

TEST_F(BrandingTest, WhatCountsIsFoundInFrontOfALotOfRubbish) {
  const std::string rubbish = repeated(every_byte(), twenty_megabytes);
  put("oem.oem", "eTestCraft\r\nMARLO\r\n" + rubbish);
  start_with_partner_file("\x01\x02_skq\xff\r\n" + rubbish);
  EXPECT_EQ(branding().oem_active, 0);
  EXPECT_EQ(branding().partner_code, "skq");
}

TEST_F(BrandingTest, APartnersCodeIsFoundBehindAMillionLines) {
  start_with_partner_file(repeated("installed file\r\n", 16'000'000) + "MRL_kws\r\n");
  EXPECT_EQ(branding().partner_code, "kws");
}

}  // namespace
}  // namespace practice
