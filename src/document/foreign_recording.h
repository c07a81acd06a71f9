// foreign_recording.h - what every reader of a foreign format does besides finding its samples:
// the channel's fields, the choice of one channel out of several, and the word on a file that is
// shorter than it says.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

namespace cantorix {

class CSonadexDoc;
class File;

// "Channel #1" for the entry 0 of that list.
std::string ChannelEntry(int entry);

// Sets the fields of channel 0 that follow from rate (> 0, Hz) and length (> 0, samples, may have a
// fraction): 16 bits, amplitudes in "bits", the whole file visible. The samples are left alone.
void SetForeignFields(CSonadexDoc& document, double rateHz, double lengthSamples);

// The channel to read, counted from 0, of a file with `channelCount` >= 1; with more than one the
// user is asked, among as many of the first as the program around the document lists. Throws
// Abandoned when the user cancels, FileError when the answer names a channel that is not offered.
int ChooseChannelOrAbandon(CSonadexDoc& document, int channelCount);

// Notes that `channel`, counted from 0, was taken out of the several channels of the file at
// `path`: windows then show the document as "speech.wav::Channel2".
void NameExtractedChannel(CSonadexDoc& document, const std::string& path, int channel);

// Tells the user of a file that promises `promised` samples and has `held`, when that is fewer;
// `then` says what becomes of the others, as a sentence after a blank.
void TellOfMissing(CSonadexDoc& document, std::int64_t promised, std::int64_t held,
                   const std::string& then = {});

// A recording in a foreign file, before its samples are read.
struct ForeignSound {
  std::string format;  // as the user is told it: "AIFF"
  std::string coding;
  int channels = 1;
  double rateHz = 0.0;                     // > 0
  std::optional<std::int64_t> frames{};    // samples of a channel that may be read; none: all
  std::optional<std::int64_t> promised{};  // by its header, where that says so
};

// Fills `out` with the samples of `channel` from `position` on and gives how many there were: fewer
// than out.size() only at the end. Positions only grow.
using ChannelFeed =
    std::function<std::size_t(int channel, std::int64_t position, std::span<std::int16_t> out)>;

// Gives channel 0 the samples of `channel` and tells how many they are.
using ChannelLoader = std::function<std::int64_t(int channel)>;

// Makes `sound` channel 0 of the document: asks for the channel, moves its samples, sets the fields
// and tells of what is missing. Throws Abandoned when the user cancels or memory runs out,
// FileError when the sound has no sample or no possible rate, or when file or disk store fail.
void ReadForeign(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                 const ChannelLoader& load);
// The same with the samples of `feed`, in memory or in the disk store.
void ReadForeign(CSonadexDoc& document, const File& file, const ForeignSound& sound,
                 const ChannelFeed& feed);

}  // namespace cantorix
