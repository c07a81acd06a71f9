// verb_commands.cpp - the command table of the desktop as a table of text and as a page to read.
#include <algorithm>

#include "batch/verbs.h"
#include "mainview/commands.h"

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

constexpr const char* kPageHead = R"(# Commands

Written by `cantorix-batch commands --markdown -o docs/commands.md`. A command is enabled when all
that stands under "needs" holds for the active view. While a recording runs into a document, the
other commands of that document are off.
)";

std::string AsPage() {
  std::string page = kPageHead;
  Menu menu = Menu::kNone;
  for (const CommandRow& row : CommandTable()) {
    if (row.menu != menu || page.size() == std::string_view(kPageHead).size()) {
      menu = row.menu;
      page += "\n## " + NameOf(menu) +
              "\n\n| entry | key | needs | what it does |\n|---|---|---|---|\n";
    }
    page += "| " + Plain(row.text) + " | " + std::string(row.accelerator) + " | " +
            FactNames(row.needs) + " | " + std::string(row.status) + " |\n";
  }
  return page;
}

}  // namespace

void ShowCommands(bool markdown, TextSink& sink) {
  if (markdown) return sink.Write(AsPage());
  sink.Write("menu\ttext\tkey\tneeds\ttip\tstatus\n");
  for (const CommandRow& row : CommandTable()) sink.Write(AsRow(row));
}

}  // namespace cantorix::batch
