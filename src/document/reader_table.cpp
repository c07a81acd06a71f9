// reader_table.cpp - the slots and their order.
#include "document/reader_table.h"

#include "document/native_file.h"
#include "document/wav_file.h"

namespace cantorix {
namespace {

// A reader that answers yes or no, in a plain slot.
template <bool (*kRead)(CSonadexDoc&, const File&)>
int Plain(CSonadexDoc& document, const File& file) {
  return kRead(document, file) ? kWasRead : kNotThisFormat;
}

int Declines(CSonadexDoc&, const File&) { return kNotThisFormat; }
int DeclinesThreeWay(CSonadexDoc&, const File&) { return kThreeWayNotThisFormat; }

constexpr ReaderKind kPlain = ReaderKind::kPlain;
constexpr ReaderKind kThreeWay = ReaderKind::kThreeWay;

constexpr Reader kByContent[] = {
    {"QRV_PC", kPlain, Plain<ReadNative>},
    {"labelled foreign 1", kPlain, Declines},
    {"QRV_Mac", kPlain, Declines},
    {"labelled foreign 2", kPlain, Declines},
    {"KWZ_PC", kPlain, Declines},
    {"KWZ_Mac", kPlain, Declines},
    {"QRVMACX", kPlain, Declines},
    {"KWZ_PC_FLOAT_24", kThreeWay, DeclinesThreeWay},
    {"KWZ_PC_FLOAT", kThreeWay, DeclinesThreeWay},
    {"Datalyn 1", kPlain, Declines},
    {"Datalyn 2", kPlain, Declines},
    {"foreign 3", kPlain, Declines},
    {"AIFF/AIFC", kPlain, Declines},
    {"WAV", kPlain, Plain<ReadWave>},
    {"CSL NSP", kPlain, Declines},
    {"NIST SPHERE", kPlain, Declines},
    {"SUN au", kPlain, Declines},
    {"ESPS/xwave", kPlain, Declines},
};

constexpr Reader kGeneric[] = {
    {"integer binary", kPlain, Declines},
    {"ASCII", kPlain, Declines},
};

constexpr ReaderTable kStandardReaders{kByContent, kGeneric};

}  // namespace

const ReaderTable& StandardReaders() { return kStandardReaders; }

}  // namespace cantorix
