#pragma once
#include <cstdint>
#include <string>

#include "platform/core/Event.h"
#include "platform/core/Ref.h"

namespace platform::automation {

/// The development environment's status bar: a text and a progress display. On the
/// command line the progress is a line on standard error, drawn only when standard error
/// is a terminal; the text is kept for whoever asks.
class StatusBar : public Dispatch {
 public:
  const char* TypeName() const override { return "StatusBar"; }

  const std::string& Text() const { return m_text; }
  void SetText(const std::string& text);
  /// Shows (`inProgress` true) or removes the progress display: `label` at `amountCompleted`
  /// of `total`.
  void Progress(bool inProgress, const std::string& label = "", int32_t amountCompleted = 0,
                int32_t total = 0);
  void Clear();

  bool inProgress() const { return m_inProgress; }
  const std::string& progressLabel() const { return m_label; }
  int32_t progressAmount() const { return m_amount; }
  int32_t progressTotal() const { return m_total; }

  /// Whether progress lines are drawn; by default when standard error is a terminal.
  void SetDrawProgress(bool draw) { m_draw = draw; }

  /// Raised after the text or the progress changed, for a host that draws the bar.
  Event<> Changed;

 private:
  void Draw() const;

  std::string m_text;
  bool m_inProgress = false;
  std::string m_label;
  int32_t m_amount = 0;
  int32_t m_total = 0;
  bool m_draw;

 public:
  StatusBar();
};

}  // namespace platform::automation
