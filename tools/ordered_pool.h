// Worker threads whose results come out in the order in which the work went in.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace brushworks::tools {

/// One thread per worker function. A single thread drives the pool: it submits while there is room,
/// and takes when there is none, which bounds what is held in memory.
template <class In, class Out>
class OrderedPool {
  public:
    using Worker = std::function<Out(In)>;

    OrderedPool(std::vector<Worker> workers, std::size_t capacity) : m_nCapacity(capacity) {
        m_threads.reserve(workers.size());
        for (Worker& worker : workers) {
            m_threads.emplace_back([this, work = std::move(worker)] { run(work); });
        }
    }

    /// Lets running work end and drops the rest.
    ~OrderedPool() {
        {
            const std::lock_guard lock(m_mutex);
            m_bStop = true;
        }
        m_workThere.notify_all();
    }
    OrderedPool(const OrderedPool&) = delete;
    OrderedPool& operator=(const OrderedPool&) = delete;

    /// Whether submit() is allowed: fewer than `capacity` items are in the pool.
    bool hasRoom() const { return m_order.size() < m_nCapacity; }
    bool empty() const { return m_order.empty(); }

    void submit(In in) {
        auto job = std::make_shared<Job>(std::move(in));
        m_order.push_back(job);
        {
            const std::lock_guard lock(m_mutex);
            m_waiting.push_back(std::move(job));
        }
        m_workThere.notify_one();
    }

    /// Waits for the oldest item; throws what its worker threw.
    Out take() {
        const std::shared_ptr<Job> job = std::move(m_order.front());
        m_order.pop_front();
        std::unique_lock lock(m_mutex);
        m_jobDone.wait(lock, [&] { return job->out || job->error; });
        if (job->error) std::rethrow_exception(job->error);
        return std::move(*job->out);
    }

  private:
    struct Job {
        explicit Job(In work) : in(std::move(work)) {}
        In in;
        std::optional<Out> out;
        std::exception_ptr error;
    };

    void run(const Worker& work) {
        std::unique_lock lock(m_mutex);
        for (;;) {
            m_workThere.wait(lock, [this] { return m_bStop || !m_waiting.empty(); });
            if (m_bStop) return;
            const std::shared_ptr<Job> job = std::move(m_waiting.front());
            m_waiting.pop_front();
            lock.unlock();
            std::optional<Out> out;
            std::exception_ptr error;
            try {
                out = work(std::move(job->in));
            } catch (...) {
                error = std::current_exception();
            }
            lock.lock();
            job->out = std::move(out);
            job->error = std::move(error);
            m_jobDone.notify_one();
        }
    }

    const std::size_t m_nCapacity;
    std::deque<std::shared_ptr<Job>> m_order;  ///< of the driving thread alone
    std::mutex m_mutex;
    std::condition_variable m_workThere;
    std::condition_variable m_jobDone;
    std::deque<std::shared_ptr<Job>> m_waiting;
    bool m_bStop = false;
    std::vector<std::jthread> m_threads;  ///< last: they end before the rest goes
};

}  // namespace brushworks::tools
