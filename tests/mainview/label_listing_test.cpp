// label_listing_test.cpp - the label list sorted, filtered and changed at many places at once, the
// context menu's commands, and the phonetic signs.
#include "mainview/label_listing.h"

#include <gmock/gmock.h>

#include <set>

#include "mainview/context_commands.h"
#include "mainview/editing.h"
#include "mainview/label_commands.h"
#include "mainview/label_moves.h"
#include "mainview/label_renaming.h"
#include "mainview/phonetic_signs.h"
#include "mainview/view_commands.h"
#include "mainview/view_fixture.h"

namespace cantorix {
namespace {

using ::testing::ElementsAre;

std::string RowsOf(const LabelListing& listing) {
  std::string text;
  for (std::size_t i = 0; i < listing.size(); ++i) {
    text += Joined(listing.row(i).tier, listing.row(i).text, listing.row(i).timeMs) + ", ";
  }
  return text;
}

LabelListing SomeLabels() {
  LabelListing listing;
  listing.Take({{1, 0, "words", "\xC3\x89mile", 30.0},
                {1, 1, "words", "alphabetical", 10.0},
                {1, 2, "words", "Alphabet", 20.0},
                {2, 0, "breaks", "alphabet", 5.0},
                {2, 1, "breaks", "", 40.0}});
  return listing;
}

TEST(LabelListing, SortsByEachColumnAndKeepsEqualRowsAsStored) {
  LabelListing listing = SomeLabels();
  const std::string stored =
      "1 \xC3\x89mile 30, 1 alphabetical 10, 1 Alphabet 20, 2 alphabet 5, 2  40, ";
  EXPECT_EQ(RowsOf(listing), stored);
  const struct {
    LabelColumn column;
    bool descending;
    std::string rows;
  } cases[] = {
      {LabelColumn::kTime, false,
       "2 alphabet 5, 1 alphabetical 10, 1 Alphabet 20, 1 \xC3\x89mile 30, 2  40, "},
      {LabelColumn::kTime, true,
       "2  40, 1 \xC3\x89mile 30, 1 Alphabet 20, 1 alphabetical 10, 2 alphabet 5, "},
      {LabelColumn::kText, false,
       "2  40, 1 Alphabet 20, 2 alphabet 5, 1 alphabetical 10, 1 \xC3\x89mile 30, "},
      {LabelColumn::kText, true,
       "1 \xC3\x89mile 30, 1 alphabetical 10, 1 Alphabet 20, 2 alphabet 5, 2  40, "},
      {LabelColumn::kTier, true,
       "2 alphabet 5, 2  40, 1 \xC3\x89mile 30, 1 alphabetical 10, 1 Alphabet 20, "},
  };
  for (const auto& row : cases) {
    listing.SortBy(row.column, row.descending);
    EXPECT_EQ(RowsOf(listing), row.rows);
  }
  listing.SortBy(std::nullopt, false);
  EXPECT_EQ(RowsOf(listing), stored);
}

TEST(LabelListing, FiltersByTierAndLettersAndSaysWhatIsHidden) {
  LabelListing listing;
  EXPECT_EQ(listing.EmptyText(), "No labels. Turn on label entry, click and type.");
  listing = SomeLabels();
  listing.SortBy(LabelColumn::kTime, false);
  listing.Filter("ALPHA", -1);
  EXPECT_EQ(RowsOf(listing), "2 alphabet 5, 1 alphabetical 10, 1 Alphabet 20, ");
  listing.Filter("\xC3\xA9", 1);
  EXPECT_EQ(RowsOf(listing), "1 \xC3\x89mile 30, ");
  listing.Filter(" ", 2);
  EXPECT_EQ(RowsOf(listing), "2 alphabet 5, 2  40, ");
  listing.Filter("x", -1);
  EXPECT_EQ(listing.size(), 0U);
  EXPECT_EQ(listing.EmptyText(), "No label matches 'x' (5 hidden).");
  listing.Filter("", 2);
  listing.Take({{1, 0, "words", "only", 1.0}});
  EXPECT_EQ(RowsOf(listing), "1 only 1, ");
}

TEST_F(LabelTest, ManyLabelsAreRenamedInOneEdit) {
  AddLabel(document, kBreaks, 1000.0, "one one");
  auto& texts = world.dialogs.texts;
  auto rows = LabelListRows(document);
  rows.push_back({kWords, 7, "words", "gone", 0.0});
  texts.WillGive({"one", std::string(130, 'x')});
  texts.WillGive({"one", ""});
  texts.WillGive({"one", "1"});
  RenameListedLabels(view, rows);
  EXPECT_EQ(Words() + ' ' + LabelsOf(channel, kBreaks), "1@2000 two@6000 1 1@1000");
  EXPECT_EQ(texts.presets[0].note, "In 3 labels");
  EXPECT_EQ(texts.presets[2].fields[0].preset, "one");
  EXPECT_THAT(world.test.prompts.TakeTranscript(),
              ElementsAre("message: The label 'one one' would have more than 255 bytes.",
                          "message: The label 'one' would be without text."));
  EXPECT_EQ(world.listener.said.back(), "2 of 3 labels renamed.");
  Undo(view);
  EXPECT_EQ(Words() + ' ' + LabelsOf(channel, kBreaks), "one@2000 two@6000 one one@1000");
  texts.WillGive({"", "all"});
  RenameListedLabels(view, LabelListRows(document));
  EXPECT_EQ(Words() + ' ' + LabelsOf(channel, kBreaks), "all@2000 all@6000 all@1000");
}

TEST_F(LabelTest, ManyLabelsAreDeletedInOneEdit) {
  AddLabel(document, kWords, 7000.0, "three");
  AddLabel(document, kBreaks, 1000.0, "b");
  const auto rows = LabelListRows(document);
  DeleteListedLabels(view, {rows[3], rows[2], rows[0]});
  EXPECT_EQ(Words() + LabelsOf(channel, kBreaks), "two@6000");
  EXPECT_EQ(EditOf(view), "undo modified");
  Undo(view);
  EXPECT_EQ(Words() + LabelsOf(channel, kBreaks), "one@2000 two@6000 three@7000b@1000");
}

// The texts of the menu, groups parted by "|".
std::string MenuAt(CSonadexView& view, std::int32_t x, std::int32_t y) {
  std::string text;
  for (const auto& group : ContextCommands(view, x, y)) {
    if (!text.empty()) text += "| ";
    for (const Command command : group) text += std::string(RowOf(command).text) + ", ";
  }
  return text;
}

TEST_F(LabelTest, TheContextMenuIsThatOfThePlace) {
  const std::string label = "Type Label, Edit Label..., Play Label, Delete Label, | ";
  const std::string selection =
      "Selection, Play Selection, | Cu&t, &Copy, | Spectrogram Selection, FFT/LPC Selection, Pitch "
      "Selection, Statistics of Selection, | ";
  const std::string tier = "New Label, Set/Modify..., ";
  SelectSpan(view, 2000.0, 4000.0);
  document.settings.display.intensityInOwnPane = document.settings.display.drawIntensity = 1;
  view.LayOut(kWideClient);
  const auto middle = [](const PixelRect& pane) { return (pane.top + pane.bottom) / 2; };
  const struct {
    std::int32_t x, y;
    std::string menu;
  } rows[] = {{245, 28, label + selection + tier},
              {700, 10, tier},
              {10, 50, tier},
              {300, middle(view.layout.audio), selection + "Display, "},
              {700, middle(view.layout.audio), "Display, "},
              {700, middle(view.layout.intensity), "Intensity..., Display, "},
              {700, middle(view.layout.pitch), "Pitch..., Display, "},
              {300, view.layout.timeAxis.top + 3, "Display, "}};
  for (const auto& row : rows) EXPECT_EQ(MenuAt(view, row.x, row.y), row.menu) << row.x << row.y;
  EXPECT_EQ(MarksOf(view), "selection to save 2000 of 2000 4000 = 2000");

  const auto point = [this] { return Joined(ContextPoint(view).x, ContextPoint(view).y, ""); };
  const std::string inAudio = Joined(middle(view.layout.audio), "");
  EXPECT_EQ(point(), "340 " + inAudio);
  PlaceMarker(view, 6000.0);
  EXPECT_EQ(point(), "640 " + inAudio);
  SelectLabel(view, kWords, 0);
  EXPECT_EQ(point(), "250 28 ");
  document.loaded = false;
  EXPECT_EQ(MenuAt(view, 300, 100), "");
}

TEST(PhoneticSigns, HavePlacesKeysAndNamesOfTheirOwn) {
  std::set<std::string> keys, names;
  std::set<std::tuple<SignGroup, int, int>> places;
  for (const PhoneticSign& sign : PhoneticSigns()) {
    EXPECT_TRUE(keys.emplace(sign.keys).second) << sign.keys;
    EXPECT_TRUE(places.emplace(sign.group, sign.row, sign.column).second) << sign.sign;
    EXPECT_TRUE(names.insert(Joined(static_cast<int>(sign.group), NameOf(sign))).second)
        << NameOf(sign);
    const bool isKey = sign.sign.size() == 1;
    EXPECT_EQ(sign.keys.size(), isKey ? 1U : 2U) << sign.sign;
    EXPECT_TRUE(!isKey || sign.sign == sign.keys);
  }
  EXPECT_EQ(keys.size(), 161U);
}

TEST(PhoneticSigns, AreNamedByTheirPlaceAndGivenByTheirKeys) {
  const struct {
    const char *text, *with, *name;
  } rows[] = {{"sin=", "si\xC5\x8B", "voiced velar nasal"},
              {"e=", "\xC9\x99", "mid central vowel"},
              {"a=", "\xC9\x91", "open back unrounded vowel"},
              {"y=", "\xCA\x8F", "near-close near-front rounded vowel"},
              {"tt=", "t\xCE\xB8", "voiceless dental fricative"},
              {"o^", "\xCC\xA5", "voiceless"}};
  for (const auto& row : rows) {
    const auto with = WithSign(row.text, std::string_view(row.text).size());
    ASSERT_TRUE(with) << row.text;
    EXPECT_EQ(with->text, row.with);
    EXPECT_EQ(with->cursor, with->text.size());
    const auto signs = PhoneticSigns();
    const auto sign = std::find_if(signs.begin(), signs.end(), [&](const PhoneticSign& other) {
      return with->text.ends_with(other.sign) && other.sign.size() > 1;
    });
    EXPECT_EQ(NameOf(*sign), row.name);
  }
  EXPECT_EQ(WithSign("n=x", 2)->text, "\xC5\x8Bx");
  for (const char* const text : {"", "n", "qq", "=n"}) {
    EXPECT_FALSE(WithSign(text, std::string_view(text).size())) << text;
  }
}

}  // namespace
}  // namespace cantorix
