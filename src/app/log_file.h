// log_file.h - the measurement log as a text file: each line a row, each field ended by a TAB, each
// line by CR LF, the captions first. Nothing is quoted, so a text that holds a TAB or a line end,
// and a line of 1000 bytes and more, do not read back as they were.
#pragma once

#include <string>
#include <string_view>

#include "app/log_table.h"

namespace cantorix {

class Prompts;

// Appends the line of a row to `text`, with the cells of `columns` columns.
void AppendLogLine(std::string& text, const LogTable::Row& cells, std::size_t columns);

// The whole file. A cell without a value is written as an empty text.
std::string LogText(const LogTable& log);

// The same as a table with commas, for spreadsheets: captions first, cells quoted where they need
// it, lines ended by CR LF.
std::string LogCsv(const LogTable& log);

enum class LogReading { kRead, kLineTooLong, kNotALog };

// Fills `log` from the bytes of a file; anything but kRead leaves it as it was. Lines end at every
// CR and every LF, empty lines count for nothing, what follows the last TAB of a line is dropped.
// The line with the most TABs gives the number of columns; captions that are missing are empty.
LogReading ReadLogText(std::string_view text, LogTable& log);

// Writes the log and clears its modified flag. False, after a message, when the file could not be
// written; the earlier file and the log then stay as they were.
bool SaveLog(LogTable& log, const std::string& path, Prompts& prompts);

// Writes the log as LogCsv has it; its own file and its modified flag stay. False, after a message,
// when the file could not be written.
bool ExportLogAsCsv(const LogTable& log, const std::string& path, Prompts& prompts);

// Replaces the log by the file's content. False when it could not be read, which leaves the log as
// it was; a line of 1000 bytes and more shows no message.
bool OpenLog(LogTable& log, const std::string& path, Prompts& prompts);

}  // namespace cantorix
