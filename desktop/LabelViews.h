// Labels and frames.
#pragma once

#include <QGroupBox>
#include <QLabel>

#include "desktop/View.h"
#include "platform/ui/Label.h"

namespace payslate::desktop {

/// A line of plain text that ends in an ellipsis where it does not fit.
class ElidingLabel : public QLabel {
 public:
  using QLabel::QLabel;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool isClipped() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class LabelView : public View {
 public:
  LabelView(FormWindow& window, ui::Label& label);
  /// The label names this field, and its & is the field's mnemonic. The field's view lives as long as this.
  void setField(View& field);
  void refresh() override;
  [[nodiscard]] QString clippedText() const override;

 protected:
  void follow(const ui::Change& change) override;

 private:
  ui::Label& label_;
  ElidingLabel* line_;
  View* field_ = nullptr;
};

class FrameView : public View {
 public:
  FrameView(FormWindow& window, ui::Frame& frame);
  void refresh() override;
  [[nodiscard]] QGroupBox* box() const { return box_; }

 protected:
  void follow(const ui::Change& change) override;

 private:
  ui::Frame& frame_;
  QGroupBox* box_;
};

}  // namespace payslate::desktop
