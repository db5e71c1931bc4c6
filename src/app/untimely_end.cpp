#include "app/untimely_end.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace morvane {

namespace {

// How long a thread that noticed first waits for the main one, which may be waiting for it in turn.
constexpr std::chrono::seconds patience{5};

std::atomic<UntimelyEnd*> present = nullptr;
std::atomic<bool> isFinishing = false;

}  // namespace

UntimelyEnd::UntimelyEnd(std::function<void()> finish) : finish_(std::move(finish)) {
    present = this;
    // Twice: each is called once, and both another thread and the main one may end the process.
    static const bool isRegistered =
        std::atexit(&processEnds) == 0 && std::atexit(&processEnds) == 0;
    (void)isRegistered;
}

UntimelyEnd::~UntimelyEnd() {
    present = nullptr;
}

void UntimelyEnd::processEnds() {
    UntimelyEnd* const end = present;
    if (end == nullptr) return;
    if (std::this_thread::get_id() == end->mainThread_) end->finish();
    if (QCoreApplication* const application = QCoreApplication::instance()) {
        QMetaObject::invokeMethod(application, [end] { end->finish(); }, Qt::QueuedConnection);
    }
    const auto latest = std::chrono::steady_clock::now() + patience;
    while (isFinishing || std::chrono::steady_clock::now() < latest) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::_Exit(EXIT_FAILURE);
}

void UntimelyEnd::finish() {
    // It may come about once more by what is done meanwhile, and then there is nothing to add.
    if (!isFinishing.exchange(true)) finish_();
    std::_Exit(EXIT_FAILURE);
}

}  // namespace morvane
