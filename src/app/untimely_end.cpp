#include "app/untimely_end.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace morvane {

namespace {

std::atomic<UntimelyEnd*> present = nullptr;
std::atomic<std::thread::id> finishing;  // the thread that does, once one does

bool isFinishing() {
    return finishing.load() != std::thread::id();
}

void wait() {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
}

}  // namespace

UntimelyEnd::UntimelyEnd(std::function<void()> finish, std::chrono::milliseconds patience)
    : finish_(std::move(finish)), patience_(patience) {
    present = this;
    comeFirst();
}

UntimelyEnd::~UntimelyEnd() {
    present = nullptr;
}

void UntimelyEnd::comeFirst() {
    // Twice: each is called once, and both another thread and the main one may end the process.
    // Without room for them the process ends as it would without this.
    (void)std::atexit(&processEnds);
    (void)std::atexit(&processEnds);
}

void UntimelyEnd::processEnds() {
    UntimelyEnd* const end = present;
    if (end == nullptr) return;
    if (std::this_thread::get_id() == end->mainThread_) end->finish();
    if (QCoreApplication* const application = QCoreApplication::instance()) {
        QMetaObject::invokeMethod(application, [end] { end->finish(); }, Qt::QueuedConnection);
    }
    const auto latest = std::chrono::steady_clock::now() + end->patience_;
    while (!isFinishing() && std::chrono::steady_clock::now() < latest) wait();
    end->finish();
}

void UntimelyEnd::finish() {
    const std::thread::id own = std::this_thread::get_id();
    std::thread::id nobody;
    if (finishing.compare_exchange_strong(nobody, own)) {
        finish_();
    } else {
        // What is done meanwhile may end the process once more, and then there is nothing to add.
        while (finishing.load() != own) wait();
    }
    std::_Exit(EXIT_FAILURE);
}

}  // namespace morvane
