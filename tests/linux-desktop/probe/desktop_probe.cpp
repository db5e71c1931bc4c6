// Does on the desktop what it is told, a command a line on standard input, and prints a line for
// whatever comes of it. "returned" comes as soon as the call is over, so a reader sees what waits.

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <array>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <unistd.h>

#include "platform/linux/appearance.h"
#include "platform/linux/application_windows.h"
#include "platform/linux/linux_desktop.h"
#include "platform/linux/tray.h"

namespace {

using namespace morvane;
using namespace morvane::linuxdesktop;

void say(const std::string& line) {
    std::cout << line << std::endl;
}

// Up to the next tab.
std::string nextPart(std::string& rest) {
    const std::size_t end = rest.find('\t');
    std::string part = rest.substr(0, end);
    rest = end == std::string::npos ? "" : rest.substr(end + 1);
    return part;
}

const char* words(Appearance::Scheme scheme) {
    switch (scheme) {
        case Appearance::Scheme::noPreference:
            return "no preference";
        case Appearance::Scheme::dark:
            return "dark";
        case Appearance::Scheme::light:
            return "light";
    }
    return "";
}

class Probe {
public:
    Probe() : desktop_(bus_, [](const std::string& url) { say("link " + url); }) {
        QObject::connect(&appearance_, &Appearance::schemeChanged, [this] { sayAppearance(); });
        QObject::connect(&appearance_, &Appearance::reducesMotionChanged,
                         [this] { sayAppearance(); });
        QObject::connect(&tray_, &Tray::isPresentChanged, [this] { sayTray(); });
        QObject::connect(&tray_, &Tray::activated, [] { say("activated"); });
        QPixmap square(22, 22);
        square.fill(QColor(255, 0, 200));
        tray_.setIcon(square);
        tray_.setToolTip(QStringLiteral("41 GB free"));
    }

    void obey(std::string line) {
        const std::string name = nextPart(line);
        const auto found = commands_.find(name);
        if (found == commands_.end()) return say("unknown " + name);
        found->second(line);
        say("returned");
    }

private:
    void sayAppearance() const {
        say(std::string("appearance ") + words(appearance_.scheme()) +
            (appearance_.reducesMotion() ? ", less motion" : ""));
    }
    void sayTray() const { say(tray_.isPresent() ? "tray" : "no tray"); }

    void showWindow(const std::string& title) {
        auto* window = new QLabel(QString::fromStdString(title));
        window->setWindowTitle(QString::fromStdString(title));
        window->resize(300, 200);
        window->show();
    }

    QDBusConnection bus_ = QDBusConnection::sessionBus();
    LinuxDesktop desktop_;
    Appearance appearance_{bus_};
    Tray tray_{bus_};
    ApplicationWindows windows_;

    const std::map<std::string, std::function<void(std::string)>> commands_{
        {"status",
         [this](const std::string&) {
             desktop_.readNotificationStatus([](PermissionStatus status) {
                 say(status == PermissionStatus::granted ? "granted" : "denied");
             });
         }},
        {"request",
         [this](const std::string&) { desktop_.requestNotifications([] { say("requested"); }); }},
        {"post",
         [this](std::string rest) {
             const std::string identifier = nextPart(rest);
             const std::string title = nextPart(rest);
             desktop_.postNotification(identifier, title, rest);
         }},
        {"reveal", [this](const std::string& path) { desktop_.reveal(path); }},
        {"open", [this](const std::string& path) { desktop_.open(path); }},
        {"url", [this](const std::string& url) { desktop_.openURL(url); }},
        {"appearance", [this](const std::string&) { sayAppearance(); }},
        {"tray", [this](const std::string&) { sayTray(); }},
        {"show tray", [this](const std::string&) { tray_.setShown(true); }},
        {"hide tray", [this](const std::string&) { tray_.setShown(false); }},
        {"tooltip",
         [this](const std::string& text) { tray_.setToolTip(QString::fromStdString(text)); }},
        {"window", [this](const std::string& title) { showWindow(title); }},
        {"activate", [this](const std::string&) { desktop_.activate(); }},
        {"active",
         [this](const std::string&) { say(windows_.isActive() ? "in front" : "behind"); }},
        {"choose",
         [this](const std::string&) {
             windows_.chooseFolders(
                 {}, [](const auto& chosen) { say(chosen ? "chosen" : "dismissed"); });
         }},
        // Comes after whatever is ready now has had its turn.
        {"turn", [](const std::string&) { QTimer::singleShot(1, [] { say("turned"); }); }},
    };
};

}  // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    Probe probe;
    std::string text;
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&] {
        std::array<char, 4096> piece{};
        const ssize_t size = ::read(STDIN_FILENO, piece.data(), piece.size());
        if (size <= 0) return QApplication::quit();
        text.append(piece.data(), static_cast<std::size_t>(size));
        for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n')) {
            std::string line = text.substr(0, end);
            text.erase(0, end + 1);
            probe.obey(std::move(line));
        }
    });
    say("ready");
    return QApplication::exec();
}
