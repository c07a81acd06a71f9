// frame_host.h - what a document's window asks of the main frame, and tells it.
#pragma once

#include <QPoint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "mainview/commands.h"
#include "mainview/view_ports.h"

namespace cantorix {

class CChildFrame;
class CSonadexDoc;
class CSonadexView;
class LogSink;
struct Pointed;
class SoundDesk;

class FrameHost {
 public:
  virtual ~FrameHost() = default;

  // Something that commands depend on may have changed.
  virtual void StateChanged() = 0;
  virtual void LabelsChanged(CSonadexView& view) = 0;
  virtual void CursorMoved(CSonadexView& view, MousePhase phase, double ms) = 0;
  // What is under the pointer in a window of the view; nothing: it points at nothing there.
  virtual void PointedAt(CSonadexView& view, const std::optional<Pointed>& pointed) = 0;
  // One line for the user of the view.
  virtual void Said(CSonadexView& view, const std::string& text) = 0;
  // A command, as by its menu.
  virtual void Perform(Command command) = 0;
  // A context menu of commands at a place of the screen, a line between the groups.
  virtual void ShowContextMenu(const std::vector<std::vector<Command>>& groups,
                               const QPoint& at) = 0;
  virtual bool phoneticChartShown() const = 0;
  // Recordings that an empty window offers: those used last, then the sample, as far as they are
  // there.
  virtual std::vector<std::string> RecentRecordings() const = 0;
  virtual std::string SampleRecording() const = 0;  // empty: it is not installed
  // Nothing while another operation runs.
  virtual void OpenOffered(const std::string& path) = 0;
  virtual SoundDesk& sound() = 0;
  // The input that the user has chosen is used from here on.
  virtual void PrepareRecording() = 0;
  // Null while no log is open.
  virtual LogSink* openLog() = 0;
  // Carries out what the user began in a view: nothing while another operation runs; an operation
  // that is given up ends silently, a failure is shown.
  virtual void Run(CSonadexView& view, const std::function<void()>& action) = 0;
  // Whether the window may be closed; asks about unsaved changes when it is the last one of its
  // document.
  virtual bool MayClose(CChildFrame& frame) = 0;
  // The view of a window is about to go, and whatever belongs to it must go first.
  virtual void Closing(CSonadexView& view) = 0;
  // A window of the document is closed and its view gone.
  virtual void Closed(CSonadexDoc& document) = 0;
};

}  // namespace cantorix
