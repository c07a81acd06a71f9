// label_field.h - the field in which a label is typed, drawn over its tier in the main view. What
// is typed belongs to the view (mainview/label_typing.h); the field shows it and passes keys on.
#pragma once

#include <QLineEdit>
#include <functional>

#include "mainview/sonadex_view.h"

namespace cantorix {

class LabelField : public QLineEdit {
 public:
  using Pass = std::function<void(const std::function<void(CSonadexView&)>&)>;

  // `pass` runs an action on the view, guarded; while `pairs` holds, two keys of a phonetic sign
  // give that.
  LabelField(Pass pass, std::function<bool()> pairs, QWidget* picture);

  // Shown and hidden, in place and with the text of the view's typing. The picture has the focus
  // again at the end.
  void Follow(CSonadexView& view);
  // The view is about to go.
  void LetGo();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void Take(const QString& text);
  bool TakesPair(const QString& text);
  void ShowLooks(const CSonadexView& view);

  Pass pass_;
  std::function<bool()> pairs_;
  qsizetype length_ = 0;  // of the text before the last key
  bool ending_ = false;   // hidden by the view, not left by the user
};

}  // namespace cantorix
