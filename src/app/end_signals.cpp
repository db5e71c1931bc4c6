#include "app/end_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace morvane {

namespace {

constexpr std::array asking{SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t eventFile = -1;

// Does no more than a handler may: the rest has its turn in the main loop.
void note(int) {
    const int before = errno;
    const std::uint64_t one = 1;
    if (eventFile >= 0) (void)!::write(eventFile, &one, sizeof one);
    errno = before;
}

}  // namespace

EndSignals::EndSignals(std::function<void()> asked) : event_(::eventfd(0, EFD_CLOEXEC)) {
    if (!event_) return;
    notifier_ = std::make_unique<QSocketNotifier>(event_.get(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                     [this, asked = std::move(asked)] {
                         notifier_->setEnabled(false);
                         asked();
                     });
    eventFile = event_.get();
    for (const int number : asking) {
        struct sigaction now{};
        if (::sigaction(number, nullptr, &now) != 0 || now.sa_handler == SIG_IGN) continue;
        struct sigaction noting{};
        noting.sa_handler = note;
        noting.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        ::sigaction(number, &noting, nullptr);
    }
}

EndSignals::~EndSignals() {
    for (const int number : asking) {
        struct sigaction now{};
        if (::sigaction(number, nullptr, &now) != 0 || now.sa_handler != note) continue;
        ::signal(number, SIG_DFL);
    }
    eventFile = -1;
}

}  // namespace morvane
