#pragma once
#include <cstdint>
#include <deque>
#include <functional>
#include <vector>

#include "terminal/Layer.h"
#include "terminal/Terminal.h"

namespace app::terminal {

/// The host's message loop on a terminal: draws the layers, waits a short tick for
/// input, lets the real time that passed run on the forms' clock (so timers, such as
/// the delayed hints, fall due as a person expects), runs the pending messages
/// (DoEvents), and hands the input to the layer in front. Loops nest: a modal dialog
/// opened from an input handler runs its own loop with its layer on top.
class EventLoop {
 public:
  static constexpr int kTickMs = 50;

  /// `now` tells the time in milliseconds (the steady clock unless a test gives one).
  explicit EventLoop(Terminal& terminal, std::function<int64_t()> now = {});

  Terminal& terminal() { return m_t; }
  /// The time in milliseconds.
  int64_t Now() const { return m_now(); }
  const std::function<int64_t()>& NowFunction() const { return m_now; }

  void Push(Layer* layer) { m_layers.push_back(layer); }
  /// Removes `layer` (and any layer above it).
  void Pop(Layer* layer);
  bool Empty() const { return m_layers.empty(); }

  /// Something to do on every turn of the loop, after the pending messages (the host
  /// picks up what was written to its captured output).
  void SetIdle(std::function<void()> idle) { m_idle = std::move(idle); }

  /// Runs until `running` says false or the terminal goes away.
  void Run(const std::function<bool()>& running);
  /// Draws every layer and shows the frame.
  void Redraw();
  /// Lets the time passed since the last call run on the forms' clock.
  void AdvanceClock();
  /// Whether the terminal went away (hang-up, end of input); every loop then ends.
  bool Closed() const { return m_closed; }

  /// Reads what the person typed so far without waiting, and takes out the first key
  /// `keyCode` with `shift`; true when there was one. Everything else read waits, in
  /// order, for the loop. (For code that runs long without the loop, to see whether
  /// the person asked it to stop.)
  bool TakeKey(int keyCode, int shift);

 private:
  Terminal& m_t;
  std::function<int64_t()> m_now;
  std::function<void()> m_idle;
  int64_t m_last;
  InputEvent Next(int timeoutMs);

  std::vector<Layer*> m_layers;
  std::deque<InputEvent> m_pending;
  bool m_closed = false;
};

}  // namespace app::terminal
