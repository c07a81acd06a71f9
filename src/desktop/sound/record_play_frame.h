// record_play_frame.h - the floating window of recording and playing: the input with its level, the
// rate, what is done with recordings. A change works at once and goes into the configuration file.
// What is wrong with a device stands here as text.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/record_play_settings.h"
#include "desktop/tool_frame.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;
class QSpinBox;
class QVBoxLayout;

namespace cantorix {

class LevelMeterView;
class SoundDesk;
class SoundHost;
struct SoundInput;

// What the window asks for; all of it is carried out by the one that made it.
struct RecordPlayRequests {
  std::function<void(const RecordPlaySettings&)> keep;
  std::function<void(std::int32_t index, const std::string& name)> chooseInput;
  std::function<void()> rescan;
  std::function<void()> openScope;
  std::function<void()> playSecond;
  std::function<void()> visibilityChanged;
};

// Which buttons can be pressed now.
struct RecordPlayState {
  bool canOpenScope = false;
  bool canPlay = false;
  bool canRescan = false;
};

class CFrameRecordPlay : public ToolFrame {
 public:
  CFrameRecordPlay(QWidget* owner, WindowPlacement& placement, RecordPlayRequests requests);

  // The inputs there are, and the one that is used.
  void ShowInputs(const std::vector<std::string>& names, const SoundInput& chosen);
  // Greys the rates that the input refuses.
  void ShowRates(const std::function<bool(std::uint32_t rateHz)>& takesRate);
  // Shows what is set. Asks no device.
  void ShowSettings(const RecordPlaySettings& settings);
  void ShowState(const RecordPlayState& state);
  // The level of an input that is not recorded, or why nothing is heard.
  void ShowLevel(const SoundDesk& desk);

  QComboBox& input() { return *input_; }
  QComboBox& rate() { return *rate_; }
  QSpinBox& memoryMinutes() { return *memoryMinutes_; }
  QCheckBox& automatic() { return *automatic_; }
  QPushButton& rescan() { return *rescan_; }
  QPushButton& scope() { return *scope_; }
  QPushButton& playSecond() { return *playSecond_; }
  QLabel& rateReason() { return *rateReason_; }
  QLabel& levelText() { return *levelText_; }

 protected:
  QRect DefaultPlace() const override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void AddInput(QVBoxLayout& column);
  void AddPlaying(QVBoxLayout& column);
  void AddFiles(QVBoxLayout& column);
  void Connect();
  void ShowRate(double rateHz);
  // Hands on what the user changed.
  void Keep();

  RecordPlayRequests requests_;
  RecordPlaySettings settings_;
  QComboBox* input_;
  QComboBox* rate_;
  QLabel* rateReason_;
  LevelMeterView* meter_;
  QLabel* levelText_;
  QPushButton* rescan_;
  QPushButton* scope_;
  QPushButton* playSecond_;
  QSpinBox* memoryMinutes_;
  QCheckBox* automatic_;
};

}  // namespace cantorix
