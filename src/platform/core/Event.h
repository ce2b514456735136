#pragma once
#include <functional>
#include <utility>
#include <vector>

namespace platform {

/// A synchronous event: handlers run in the order they were connected, on the raising
/// thread, before Raise returns. Arguments declared as references reach the handlers as
/// references, so a handler can write them.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  /// Connects a handler; the number returned disconnects it.
  int Connect(Handler handler) {
    m_handlers.emplace_back(++m_lastId, std::move(handler));
    return m_lastId;
  }

  void Disconnect(int id) {
    for (auto it = m_handlers.begin(); it != m_handlers.end(); ++it) {
      if (it->first == id) {
        m_handlers.erase(it);
        return;
      }
    }
  }

  /// Runs every handler. A handler may connect or disconnect others while it runs; the
  /// handlers connected when Raise began are the ones run.
  void Raise(Args... args) const {
    auto snapshot = m_handlers;
    for (auto& h : snapshot) h.second(args...);
  }

  bool empty() const { return m_handlers.empty(); }

 private:
  std::vector<std::pair<int, Handler>> m_handlers;
  int m_lastId = 0;
};

}  // namespace platform
