#pragma once

#include <QObject>
#include <QTimer>
#include <QWindow>

#include "platform/defaults.h"

namespace morvane {

// Keeps a window's size and place from one run to the next. What a maximised or hidden window
// takes up is not kept. Main thread.
class WindowMemory final : public QObject {
    Q_OBJECT

public:
    // Puts the window, not shown yet, where it stood. `window` and `defaults` outlive this; the
    // place is kept soon after each change, and with the end of this.
    WindowMemory(QWindow& window, Defaults& defaults);
    ~WindowMemory() override;

private:
    void changed();
    void keep();

    QWindow& window_;
    Defaults& defaults_;
    QTimer calm_;  // runs while the window may be moved or resized still
};

}  // namespace morvane
