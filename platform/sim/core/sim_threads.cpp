// Simulated device: the notification thread of a facade.
#include "tovr_sim_threads.h"

namespace tovr_sim {

FacadeThread::FacadeThread(std::string name) : name_(std::move(name)) {
    std::promise<std::thread::id> started;
    std::future<std::thread::id> id = started.get_future();
    thread_ = std::thread([this, &started] {
        started.set_value(std::this_thread::get_id());
        run();
    });
    id_ = id.get();
    thread_.detach();
}

std::future<unsigned long> FacadeThread::post(std::function<unsigned long()> notification) {
    std::packaged_task<unsigned long()> task(std::move(notification));
    std::future<unsigned long> answer = task.get_future();
    {
        std::lock_guard<std::mutex> lock(mutex_);
        queue_.push_back(std::move(task));
    }
    wake_.notify_one();
    return answer;
}

bool FacadeThread::on_this_thread() const { return std::this_thread::get_id() == id_; }

namespace {
thread_local bool t_facade_thread = false;
}  // namespace

bool FacadeThread::on_a_facade_thread() { return t_facade_thread; }

void FacadeThread::run() {
    t_facade_thread = true;
    for (;;) {
        std::packaged_task<unsigned long()> task;
        {
            std::unique_lock<std::mutex> lock(mutex_);
            wake_.wait(lock, [this] { return !queue_.empty(); });
            task = std::move(queue_.front());
            queue_.erase(queue_.begin());
        }
        task();
    }
}

}  // namespace tovr_sim
