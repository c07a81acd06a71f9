// labels.cpp - tiers found, label files read.
#include "measure/labels.h"

#include <utility>

#include "labelfile/label_formats.h"
#include "mainview/tiers_rollback.h"
#include "platform/file.h"
#include "platform/file_error.h"

namespace cantorix {
namespace {

// The first tier that fits; -1 without any.
template <typename Fits>
int FirstTier(const Tiers& tiers, Fits fits) {
  for (int i = 0; i < kTierCount; ++i) {
    if (fits(tiers[static_cast<std::size_t>(i)])) return i;
  }
  return -1;
}

LabelImportPlan PlanOf(const std::string& path, const std::string& format,
                       const LabelChoice& choice, const CSonadexDoc& document) {
  try {
    const LabelFormat* const wanted = LabelFormatOf(format);
    auto read = ReadLabelFile(ReadWholeFile(path), path, wanted, ReadingFor(document));
    return PlanLabelImport(std::move(read), document.channel(), choice);
  } catch (const LabelFileError& error) {
    throw FileError(CouldNotBeOpened(path, error.what()));
  } catch (const FileError& error) {
    throw FileError(CouldNotBeOpened(path, error.what()));
  }
}

}  // namespace

int TierFor(Tiers& tiers, const std::string& name) {
  for (int i = kTierCount - 1; i >= 0; --i) {
    const Tier& tier = tiers[static_cast<std::size_t>(i)];
    if (tier.inUse && tier.name == name) return i;
  }
  int slot = FirstTier(tiers, [&](const Tier& tier) { return tier.name == name; });
  if (slot < 0) slot = FirstTier(tiers, [](const Tier& tier) { return !tier.inUse; });
  if (slot < 0) return slot;
  Tier& tier = tiers[static_cast<std::size_t>(slot)];
  tier.name = name;
  tier.inUse = true;
  return slot;
}

std::vector<std::string> AddLabelsOf(const std::string& path, const std::string& format,
                                     const LabelChoice& choice, CSonadexDoc& document) {
  LabelImportPlan plan = PlanOf(path, format, choice, document);
  if (plan.labelCount == 0) throw FileError(path + " holds no labels.");
  std::vector<std::string> losses = std::move(plan.losses);
  const TiersRollback rollback(document.channel());
  AddLabels(document.channel(), std::move(plan));
  return losses;
}

}  // namespace cantorix
