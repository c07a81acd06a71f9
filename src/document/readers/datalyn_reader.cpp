// datalyn_reader.cpp - files of Datalyn programs. Their layouts were never published: a file is
// known by its first letters, and the user is told what it is instead of being asked.
#include "document/document.h"
#include "document/file_window.h"
#include "document/reader_table.h"
#include "document/readers/readers.h"
#include "platform/abandon.h"
#include "platform/file_error.h"
#include "platform/prompts.h"

namespace cantorix {
namespace {

constexpr const char* kVeryOld =
    "This is a very old Mac -pmf- format.Please contact manufacturer to get a patch for this "
    "format.";
constexpr const char* kWrongLength = "Incorrect number of data was read";

int RefuseFloat(CSonadexDoc& document, const File& file, const char* magic) {
  if (!HasMagic(file, magic)) return kThreeWayNotThisFormat;
  document.host().prompts.Message(kWrongLength);
  return kRecognisedButFailed;
}

}  // namespace

bool ReadDatalynPc(CSonadexDoc&, const File& file) {
  // The floating-point kinds begin alike and have readers of their own.
  if (!HasMagic(file, "KWZ_PC") || HasMagic(file, "KWZ_PC_FLOAT")) return false;
  throw FileError("It is a Datalyn file of the kind KWZ_PC, which cannot be read.");
}

bool ReadDatalynMac(CSonadexDoc& document, const File& file) {
  if (!HasMagic(file, "KWZ_Mac")) return false;
  document.host().prompts.Message(kVeryOld);
  throw Abandoned(AbandonReason::kFailed);
}

int ReadDatalynFloat24(CSonadexDoc& document, const File& file) {
  return RefuseFloat(document, file, "KWZ_PC_FLOAT_24");
}

int ReadDatalynFloat(CSonadexDoc& document, const File& file) {
  return RefuseFloat(document, file, "KWZ_PC_FLOAT");
}

}  // namespace cantorix
