// reader_table.cpp - the slots and their order.
#include "document/reader_table.h"

#include "document/native_file.h"
#include "document/readers/readers.h"
#include "document/wav_file.h"

namespace cantorix {
namespace {

// A reader that answers yes or no, in a plain slot.
template <bool (*kRead)(CSonadexDoc&, const File&)>
int Plain(CSonadexDoc& document, const File& file) {
  return kRead(document, file) ? kWasRead : kNotThisFormat;
}

int Declines(CSonadexDoc&, const File&) { return kNotThisFormat; }

constexpr ReaderKind kPlain = ReaderKind::kPlain;
constexpr ReaderKind kThreeWay = ReaderKind::kThreeWay;

constexpr Reader kByContent[] = {
    {"QRV_PC", kPlain, Plain<ReadNative>},
    {"labelled foreign 1", kPlain, Declines},
    {"QRV_Mac", kPlain, Plain<ReadNativeMac>},
    {"labelled foreign 2", kPlain, Declines},
    {"KWZ_PC", kPlain, Plain<ReadDatalynPc>},
    {"KWZ_Mac", kPlain, Plain<ReadDatalynMac>},
    {"QRVMACX", kPlain, Plain<ReadNativeMacX>},
    {"KWZ_PC_FLOAT_24", kThreeWay, ReadDatalynFloat24},
    {"KWZ_PC_FLOAT", kThreeWay, ReadDatalynFloat},
    {"Datalyn 1", kPlain, Declines},
    {"Datalyn 2", kPlain, Declines},
    {"foreign 3", kPlain, Declines},
    {"AIFF/AIFC", kPlain, Plain<ReadAiff>},
    {"WAV", kPlain, Plain<ReadWave>},
    {"CSL NSP", kPlain, Plain<ReadNsp>},
    {"NIST SPHERE", kPlain, Plain<ReadSphere>},
    {"SUN au", kPlain, Plain<ReadAu>},
    {"ESPS/xwave", kPlain, Plain<ReadEsps>},
    {"format of today", kPlain, Plain<ReadToday>},
};

constexpr Reader kGeneric[] = {
    {"integer binary", kPlain, Plain<ReadIntegerBinary>},
    {"ASCII", kPlain, Plain<ReadAscii>},
};

constexpr ReaderTable kStandardReaders{kByContent, kGeneric};

}  // namespace

const ReaderTable& StandardReaders() { return kStandardReaders; }

}  // namespace cantorix
