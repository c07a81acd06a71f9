// statistics_frame.h - the small window of what the selection in front measures in all. It follows
// selection, tracks and spectrogram while it is shown.
#pragma once

#include <QTimer>
#include <functional>
#include <optional>

#include "desktop/frame_host.h"
#include "desktop/tool_frame.h"
#include "mainview/selection_statistics.h"
#include "mainview/sonadex_view.h"

class QLabel;
class QPushButton;
class QTableWidget;

namespace cantorix {

class CSpectrogramView;
class DocumentWaveform;

class StatisticsFrame : public ToolFrame, private DocumentObserver {
 public:
  struct Surroundings {
    std::function<const CSpectrogramView*(const CSonadexView&)>
        spectrogramOf;  // null: none is open
    std::function<DocumentWaveform&(CSonadexDoc&)> waveformOf;
  };

  StatisticsFrame(QWidget* owner, FrameHost& host, Surroundings around);
  ~StatisticsFrame() override;

  // Measures the selection of a view; null: none. To be told before the view goes.
  void Follow(CSonadexView* view);
  const CSonadexView* view() const { return view_; }
  // Measures at once what it would have measured soon.
  void Measure();
  // The values as a row of the open log. Nothing without a log or a selection.
  void EnterIntoLog();
  // Names, values and units as lines of cells separated by TABs, onto the clipboard.
  void Copy() const;

  QTableWidget& table() { return *table_; }
  QString note() const;

 protected:
  QRect DefaultPlace() const override;
  void showEvent(QShowEvent* event) override;
  // Esc closes it while it floats.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void DocumentChanged(DocumentChanges changes, const DocumentObserver* by) override;
  void MeasureSoon();
  void Show();
  void ShowLogState();

  FrameHost& host_;
  Surroundings around_;
  CSonadexView* view_ = nullptr;
  std::optional<SelectionStatistics> statistics_;
  WindowPlacement place_;  // for as long as the program runs
  QTableWidget* table_;
  QLabel* note_;
  QPushButton* pitchAll_;
  QPushButton* copy_;
  QPushButton* enter_;
  QTimer soon_;
};

}  // namespace cantorix
