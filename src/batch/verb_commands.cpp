// verb_commands.cpp - the command table of the desktop as a table of text and as a page of the
// manual.
#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "batch/verbs.h"
#include "mainview/commands.h"
#include "mainview/picture_keys.h"

namespace cantorix::batch {
namespace {

std::string Plain(std::string_view text) {
  std::string plain(text);
  std::erase(plain, '&');
  return plain;
}

std::string NameOf(Menu menu) {
  return menu == Menu::kNone ? "Tool bar only" : Plain(MenuTitle(menu));
}

std::string AsRow(const CommandRow& row) {
  std::string line = NameOf(row.menu);
  for (const std::string& cell :
       {std::string(row.text), std::string(row.accelerator), FactNames(row.needs),
        std::string(row.toolTip), std::string(row.status)}) {
    line.append("\t").append(cell);
  }
  return line += '\n';
}

constexpr const char* kPageHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Commands - Cantorix</title>
<link rel="stylesheet" href="style.css">
</head>
<body>
<nav><a href="HelpIndex.html">Contents</a>
<a href="firsthour.html">A first hour</a>
<a href="measuring.html">Measuring well</a>
<a href="options.html">Options</a>
<a href="commands.html">Commands</a>
<a href="index.html">Index</a></nav>
<h1>Commands</h1>
<p>A command is enabled when all that stands under "needs" holds for the active view. While a
recording runs into a document, the other commands of that document are off.</p>
)";
constexpr const char* kPageEnd = "</body>\n</html>\n";

std::string Html(std::string_view text) {
  std::string html;
  for (const char c : text) {
    if (c == '&')
      html += "&amp;";
    else if (c == '<')
      html += "&lt;";
    else
      html += c;
  }
  return html;
}

std::string Keys(std::string_view keys) {
  return keys.empty() ? std::string() : "<kbd>" + std::string(keys) + "</kbd>";
}

std::string KeysOf(const CommandRow& row) {
  std::string keys = Keys(row.accelerator);
  std::istringstream others{std::string(row.otherKeys)};
  for (std::string other; others >> other;) keys += (keys.empty() ? "" : " ") + Keys(other);
  return keys;
}

// The keys that are in no menu.
std::string SectionOfKeys() {
  std::string section =
      "<h2 id=\"keys-in-the-pictures\">Keys in the pictures</h2>\n<p>While the picture of a main "
      "view, a spectrogram, a pitch "
      "track or a spectrum has the focus. Arrow keys alone scroll the main view; alone and with "
      "Shift they move the marker in the other windows.</p>\n<table>\n<tr><th>Key</th><th>What it "
      "does</th></tr>\n";
  for (const PictureKey& row : PictureKeys()) {
    section += "<tr><td>" + Keys(row.keys) + "</td><td>" + Html(row.does) + "</td></tr>\n";
  }
  return section + "</table>\n";
}

// "Tool bar only" as "tool-bar-only".
std::string Anchor(std::string_view text) {
  std::string anchor;
  for (const char c : text) {
    const bool capital = c >= 'A' && c <= 'Z';
    anchor += capital ? static_cast<char>(c - 'A' + 'a') : c >= 'a' && c <= 'z' ? c : '-';
  }
  return anchor;
}

// A menu with its commands.
std::string Section(Menu menu) {
  std::string section = "<h2 id=\"" + Anchor(NameOf(menu)) + "\">" + Html(NameOf(menu)) +
                        "</h2>\n<table>\n<tr><th>Entry</th><th>Key</th><th>Needs</th>"
                        "<th>What it does</th></tr>\n";
  for (const CommandRow& row : CommandTable()) {
    if (row.menu != menu) continue;
    section += "<tr><td>" + Html(Plain(row.text)) + "</td><td>" + KeysOf(row) + "</td><td>" +
               FactNames(row.needs) + "</td><td>" + Html(row.status) + "</td></tr>\n";
  }
  return section + "</table>\n";
}

std::string AsPage() {
  std::string page = kPageHead;
  std::vector<Menu> written;
  for (const CommandRow& row : CommandTable()) {
    if (std::find(written.begin(), written.end(), row.menu) != written.end()) continue;
    written.push_back(row.menu);
    page += Section(row.menu);
  }
  return page + SectionOfKeys() + kPageEnd;
}

}  // namespace

void ShowCommands(bool html, TextSink& sink) {
  if (html) return sink.Write(AsPage());
  sink.Write("menu\ttext\tkey\tneeds\ttip\tstatus\n");
  for (const CommandRow& row : CommandTable()) sink.Write(AsRow(row));
}

}  // namespace cantorix::batch
