// verb_labels.cpp - the labels of the tiers in use with the pitch and intensity at their times,
// taken from the tracks of the whole recording; or as a file for another program.
#include "batch/batch_view.h"
#include "batch/log_rows.h"
#include "batch/table.h"
#include "batch/verbs.h"
#include "document/label.h"
#include "mainview/label_transfer.h"
#include "mainview/log_commands.h"
#include "mainview/track_lookup.h"
#include "platform/text.h"

namespace cantorix::batch {
namespace {

void AppendLabel(const CSonadexView& view, const Tier& tier, const Label& label, TableRows& rows) {
  rows.Cell(ToUtf8(tier.name));
  rows.Cell(ToUtf8(label.text));
  rows.Cell(label.timeMs);
  rows.Cell(PitchAt(view.pitch, view.channel(), label.timeMs));
  rows.Cell(IntensityAt(view.channel().intensity, view.channel(), label.timeMs));
  rows.EndRow();
}

}  // namespace

bool WriteLabels(Session& session, bool namesFile, TextSink& sink) {
  BatchView batch(session);
  const bool ranged = batch.SelectRange();
  if (!batch.AnalysePitch(Stretch::kAll)) return false;
  const CChannel& channel = batch.view().channel();
  TableRows rows(sink, session.request().exact, namesFile ? session.file() : "");
  for (const Tier& tier : channel.tiers) {
    if (!tier.inUse) continue;
    for (const Label& label : tier.labels) {
      const bool inside = LabelInRange(label, channel.selectionStart.ms, channel.selectionEnd.ms);
      if (!ranged || inside) AppendLabel(batch.view(), tier, label, rows);
    }
  }
  rows.Flush();
  return true;
}

bool LogLabels(Session& session, TextSink& sink) {
  BatchView batch(session);
  const bool ranged = batch.SelectRange();
  if (!batch.AnalysePitch(Stretch::kAll)) return false;
  LogRows rows(sink, kLabelValues);
  EnterIntoLog(batch.view(), ranged ? LogCommand::kLabelsSelection : LogCommand::kLabelsAll, rows);
  rows.Flush();
  return true;
}

bool WriteLabelFile(Session& session, bool, TextSink& sink) {
  const LabelExport& wanted = session.request().labelExport;
  const LabelFormat& format = *LabelFormatOf(wanted.format);
  const FittedLabels fitted =
      LabelsFor(format, session.document(), wanted.tier, wanted.asIntervals);
  if (fitted.file.tiers.empty()) {
    session.prompts().Say(wanted.tier.empty() ? "No tier is in use."
                                              : "No tier in use is named " + wanted.tier + ".");
    return false;
  }
  if (!fitted.losses.empty()) session.prompts().Say(InOneLine(fitted.losses));
  sink.Write(format.write(fitted.file));
  return true;
}

}  // namespace cantorix::batch
