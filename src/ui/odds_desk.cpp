#include "ui/odds_desk.h"

#include <array>
#include <utility>

#include "character/KVNDeclare.h"
#include "ui/qt_text.h"

namespace korvane::ui {

OddsDesk::OddsDesk() : thread_([this](const std::stop_token& ends) { Work(ends); }) {}

OddsDesk::~OddsDesk() {
    Stop();
}

void OddsDesk::Ask(const HeldPath& rules, play::OpenQuestion question, Listener listener) {
    listener_ = std::move(listener);
    {
        const std::lock_guard lock(mutex_);
        task_ = Task{rules, std::move(question), ++number_};
    }
    wanted_.notify_one();
}

void OddsDesk::Stop() {
    listener_ = {};
    const std::lock_guard lock(mutex_);
    task_.reset();
    ++number_;
}

void OddsDesk::Work(const std::stop_token& ends) {
    for (;;) {
        std::optional<Task> task;
        {
            std::unique_lock lock(mutex_);
            if (!wanted_.wait(lock, ends, [this] { return task_.has_value(); }))
                return;
            task = std::exchange(task_, std::nullopt);
        }
        try {
            Reckon(ends, *task);
        } catch (const std::exception& error) {
            Tell(task->number, [why = ToQt(error.what())](const Listener& listener) { listener.failed(why); });
        }
    }
}

void OddsDesk::Reckon(const std::stop_token& ends, const Task& task) {
    constexpr std::array kSteps = {200U, 500U, 1000U, 2000U};
    Display nobody;
    Session session(DataFolder(task.rules, DataFolder::Reading::Once), {nullptr, nullptr, &nobody});
    play::Odds odds(session, task.question);
    const auto stops = [&] { return ends.stop_requested() || number_ != task.number; };
    for (const auto lives : kSteps) {
        odds.LiveUpTo(lives, stops);
        if (stops())
            return;
        Tell(task.number, [table = play::TableOf(odds)](const Listener& listener) { listener.found(table); });
    }
}

void OddsDesk::Tell(std::uint64_t number, std::function<void(const Listener& listener)> what) {
    QMetaObject::invokeMethod(
        this,
        [this, number, what = std::move(what)] {
            if (number == number_)
                what(listener_);
        },
        Qt::QueuedConnection);
}

}  // namespace korvane::ui
