// Reckons odds while the player thinks.
#pragma once

#include <QObject>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

#include "base/paths.h"
#include "play/odds_table.h"

namespace korvane::ui {

// Lives the lives in a thread and on a session of its own. What is found is told in the thread of the windows, by its
// event loop, and only as long as nothing else has been asked: first after 200 lives of each answer, last after 2,000.
class OddsDesk : public QObject {
  public:
    struct Listener {
        std::function<void(const play::OddsTable& table)> found;
        std::function<void(const QString& why)> failed;
    };

    OddsDesk();
    ~OddsDesk() override;

    // Begins with a question, by the rule data of that folder; whatever was asked before is dropped.
    void Ask(const HeldPath& rules, play::OpenQuestion question, Listener listener);
    // Nobody wants to know any more.
    void Stop();

  private:
    struct Task {
        HeldPath rules;
        play::OpenQuestion question;
        std::uint64_t number;
    };

    void Work(const std::stop_token& ends);
    void Reckon(const std::stop_token& ends, const Task& task);
    // Tells the listener, unless something else has been asked by then.
    void Tell(std::uint64_t number, std::function<void(const Listener& listener)> what);

    Listener listener_;
    std::mutex mutex_;
    std::condition_variable_any wanted_;
    std::optional<Task> task_;               // the next one
    std::atomic<std::uint64_t> number_ = 0;  // of the last question; one that is dropped has none
    std::jthread thread_;
};

}  // namespace korvane::ui
