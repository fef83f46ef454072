// Work on several threads whose results come in order.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace korvane::cli {

// Has `jobs` threads work on the pieces 0, 1, 2 ... below `count`, each by a worker of its own, made in its thread by
// `makeWorker`. Each result is given to `take` in the order of the pieces, in the calling thread, until it says that no
// more are wanted. Only a few pieces are ahead of it, so memory doesn't grow with their count. What a worker throws is
// thrown here, in its place in the order.
template <typename Result>
class OrderedJobs {
  public:
    using Worker = std::function<Result(std::uint64_t piece)>;

    OrderedJobs(unsigned jobs, std::uint64_t count) : count_(count), slots_(std::size_t{jobs} * kAhead), jobs_(jobs) {}

    void Run(const std::function<Worker()>& makeWorker, const std::function<bool(Result&&)>& take) {
        {
            std::vector<std::jthread> threads;
            StartAll(threads, makeWorker);
            TakeAll(take);
        }
        if (fault_)
            std::rethrow_exception(fault_);
    }

  private:
    static constexpr unsigned kAhead = 4;
    struct Done {
        std::optional<Result> result;
        std::exception_ptr fault;
    };
    using Lock = std::unique_lock<std::mutex>;

    void Work(const std::function<Worker()>& makeWorker) {
        Worker worker;
        for (;;) {
            std::uint64_t piece = 0;
            {
                Lock lock(mutex_);
                changed_.wait(lock, [this] { return stopped_ || next_ == count_ || next_ < taken_ + slots_.size(); });
                if (stopped_ || next_ == count_)
                    return;
                piece = next_++;
            }
            Done done;
            try {
                if (!worker)
                    worker = makeWorker();
                done.result = worker(piece);
            } catch (...) {
                done.fault = std::current_exception();
            }
            const Lock lock(mutex_);
            slots_[piece % slots_.size()] = std::move(done);
            changed_.notify_all();
        }
    }

    // As many as the machine lets; it is enough that there is one.
    void StartAll(std::vector<std::jthread>& threads, const std::function<Worker()>& makeWorker) {
        try {
            for (unsigned i = 0; i < jobs_ && i < count_; ++i)
                threads.emplace_back([this, &makeWorker] { Work(makeWorker); });
        } catch (const std::system_error&) {
            if (threads.empty())
                throw;
        }
    }

    void TakeAll(const std::function<bool(Result&&)>& take) {
        bool goes_on = true;
        for (std::uint64_t piece = 0; goes_on && piece < count_; ++piece) {
            auto done = Await(piece);
            fault_ = done.fault;
            try {
                goes_on = !fault_ && take(std::move(*done.result));
            } catch (...) {
                fault_ = std::current_exception();
                goes_on = false;
            }
        }
        const Lock lock(mutex_);
        stopped_ = true;
        changed_.notify_all();
    }
    Done Await(std::uint64_t piece) {
        Lock lock(mutex_);
        auto& slot = slots_[piece % slots_.size()];
        changed_.wait(lock, [&slot] { return slot.result || slot.fault; });
        auto done = std::exchange(slot, {});
        ++taken_;
        changed_.notify_all();
        return done;
    }

    std::uint64_t count_;
    std::vector<Done> slots_;
    unsigned jobs_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t next_ = 0;   // the piece that is worked on next
    std::uint64_t taken_ = 0;  // how many were taken
    bool stopped_ = false;
    std::exception_ptr fault_;
};

}  // namespace korvane::cli
