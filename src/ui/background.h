// Work beside the windows.
#pragma once

#include <QObject>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace korvane::ui {

// Does one thing at a time, the last that was wanted, in a thread of its own.
class Background : public QObject {
  public:
    // What the work is given: whether nobody wants it any more, to be asked often; and a way to have something done in
    // the thread of the windows, by its event loop, unless something else is wanted by then.
    using Stops = std::function<bool()>;
    using Tell = std::function<void(std::function<void()> what)>;
    using Work = std::function<void(const Stops& stops, const Tell& tell)>;

    Background();
    ~Background() override;

    // Whatever was begun before is dropped. What the work throws is told to `failed`, in the thread of the windows.
    void Begin(Work work, std::function<void(const QString& why)> failed);
    // Nobody wants it any more.
    void Stop();

  private:
    struct Task {
        Work work;
        std::function<void(const QString& why)> failed;
        std::uint64_t number = 0;
    };

    void Run(const std::stop_token& ends);
    void Do(const std::stop_token& ends, const Task& task);

    std::mutex mutex_;
    std::condition_variable_any wanted_;
    std::optional<Task> task_;               // the next one
    std::atomic<std::uint64_t> number_ = 0;  // of what was wanted last; what is dropped has an older one
    std::jthread thread_;                    // ends before all that it uses
};

}  // namespace korvane::ui
