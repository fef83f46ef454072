#include "ui/background.h"

#include <exception>
#include <utility>

namespace korvane::ui {

Background::Background() : thread_([this](const std::stop_token& ends) { Run(ends); }) {}

Background::~Background() {
    Stop();
}

void Background::Begin(Work work, std::function<void(const QString& why)> failed) {
    {
        const std::lock_guard lock(mutex_);
        task_ = Task{std::move(work), std::move(failed), ++number_};
    }
    wanted_.notify_one();
}

void Background::Stop() {
    const std::lock_guard lock(mutex_);
    task_.reset();
    ++number_;
}

void Background::Run(const std::stop_token& ends) {
    for (;;) {
        std::optional<Task> task;
        {
            std::unique_lock lock(mutex_);
            if (!wanted_.wait(lock, ends, [this] { return task_.has_value(); }))
                return;
            task = std::exchange(task_, std::nullopt);
        }
        Do(ends, *task);
    }
}

void Background::Do(const std::stop_token& ends, const Task& task) {
    const auto number = task.number;
    const Stops stops = [this, &ends, number] { return ends.stop_requested() || number_ != number; };
    const Tell tell = [this, number](std::function<void()> what) {
        QMetaObject::invokeMethod(
            this,
            [this, number, what = std::move(what)] {
                if (number == number_)
                    what();
            },
            Qt::QueuedConnection);
    };
    try {
        task.work(stops, tell);
    } catch (const std::exception& error) {
        tell([failed = task.failed, why = QString::fromUtf8(error.what())] { failed(why); });
    }
}

}  // namespace korvane::ui
