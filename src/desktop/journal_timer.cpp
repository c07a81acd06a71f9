// journal_timer.cpp - a tick that costs nothing while nothing was done.
#include "desktop/journal_timer.h"

#include <QApplication>
#include <utility>

#include "app/recovery.h"
#include "desktop/open_documents.h"
#include "desktop/qt_progress.h"
#include "platform/prompts.h"
#include "platform/services.h"

namespace cantorix {
namespace {

constexpr int kJournalTickMs = 250;
constexpr int kSoonMs = 10;  // between the parts of what is much

}  // namespace

JournalTimer::JournalTimer(Application& application, OpenDocuments& documents, const Clock& clock,
                           const QtProgress& progress)
    : application_(application),
      documents_(documents),
      clock_(clock),
      progress_(progress),
      log_(application.log, PlaceOfJournals(application)) {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
  timer_.start(kJournalTickMs);
}

void JournalTimer::Tick() {
  const double nowMs = clock_.NowMs();
  if (auto text = documents_.TickJournals(nowMs)) untold_ = std::move(*text);
  if (auto text = log_.Tick(nowMs)) untold_ = std::move(*text);
  timer_.start(documents_.areJournalsBehind() || log_.isBehind() ? kSoonMs : kJournalTickMs);
  const bool isBusy = progress_.running() || QApplication::activeModalWidget() != nullptr;
  if (untold_.empty() || isBusy) return;
  application_.prompts().Message(std::exchange(untold_, {}));
}

}  // namespace cantorix
