// foreign_recording.h - what every reader of a foreign format does besides finding its samples:
// the channel's fields, and the choice of one channel out of several.
#pragma once

#include <string>

namespace cantorix {

class CSonadexDoc;

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

}  // namespace cantorix
