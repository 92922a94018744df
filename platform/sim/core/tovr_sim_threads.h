// Notification threads of the simulated facades: one thread per facade that runs posted
// notifications in order, and the set of observers registered with a facade.
#ifndef TOVR_SIM_THREADS_H
#define TOVR_SIM_THREADS_H

#include <condition_variable>
#include <functional>
#include <future>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tovr_sim {

// One thread of a facade. Notifications posted to it run one at a time, in order, on that
// thread; the caller gets the observer's answer through the future.
class FacadeThread {
public:
    explicit FacadeThread(std::string name);
    ~FacadeThread() = delete;  // lives as long as the process: observers may still be reached at exit
    std::future<unsigned long> post(std::function<unsigned long()> notification);
    bool on_this_thread() const;
    // True on the thread of any facade.
    static bool on_a_facade_thread();
    const std::string& name() const { return name_; }

private:
    void run();
    std::string name_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::vector<std::packaged_task<unsigned long()>> queue_;
    std::thread::id id_;
    std::thread thread_;
};

// The observers registered with one facade. deliver() runs on a facade thread, on several at
// once when the facade has more than one; remove() returns only when no notification to that
// observer is under way on another thread (the caller may be such a notification itself, which
// would otherwise wait for itself).
template <typename Observer>
class ObserverSet {
public:
    void add(Observer* o) {
        std::lock_guard<std::mutex> lock(mutex_);
        observers_.push_back(o);
    }
    // Returns false when `o` was not registered.
    bool remove(Observer* o) {
        std::unique_lock<std::mutex> lock(mutex_);
        bool found = false;
        for (auto it = observers_.begin(); it != observers_.end(); ++it) {
            if (*it == o) {
                observers_.erase(it);
                found = true;
                break;
            }
        }
        idle_.wait(lock, [&] { return !busy_elsewhere(o); });
        return found;
    }
    bool contains(Observer* o) {
        std::lock_guard<std::mutex> lock(mutex_);
        for (Observer* x : observers_) {
            if (x == o) return true;
        }
        return false;
    }
    std::size_t size() {
        std::lock_guard<std::mutex> lock(mutex_);
        return observers_.size();
    }
    // Calls `fn` for each registered observer in registration order; returns each answer.
    std::vector<unsigned long> deliver(const std::function<unsigned long(Observer*)>& fn) {
        std::vector<unsigned long> answers;
        std::unique_lock<std::mutex> lock(mutex_);
        std::vector<Observer*> targets = observers_;
        for (Observer* o : targets) {
            if (!still_registered(o)) continue;
            const auto mark = busy_.insert(busy_.end(), {o, std::this_thread::get_id()});
            lock.unlock();
            answers.push_back(fn(o));
            lock.lock();
            busy_.erase(mark);
            idle_.notify_all();
        }
        return answers;
    }

private:
    bool still_registered(Observer* o) const {
        for (Observer* x : observers_) {
            if (x == o) return true;
        }
        return false;
    }
    bool busy_elsewhere(Observer* o) const {
        for (const auto& b : busy_) {
            if (b.first == o && b.second != std::this_thread::get_id()) return true;
        }
        return false;
    }
    std::mutex mutex_;
    std::condition_variable idle_;
    std::vector<Observer*> observers_;
    std::list<std::pair<Observer*, std::thread::id>> busy_;  // notifications under way
};

// Answer of a notification raised through a facade: one code per registered observer.
using Answers = std::vector<unsigned long>;

}  // namespace tovr_sim

#endif
