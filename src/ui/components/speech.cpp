#include "ui/components/speech.h"

#include <algorithm>
#include <cmath>

namespace morvane {
namespace {

// What would leave its place: breaks and controls, and the marks that turn the writing direction
// of everything after them.
bool leavesItsPlace(QChar character) {
    const char16_t code = character.unicode();
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029 ||
           (code >= 0x202A && code <= 0x202E);
}

}  // namespace

QString shownText(const QString& text, bool keepsLines) {
    if (std::ranges::none_of(text, leavesItsPlace)) return text;
    QString shown = text;
    for (QChar& character : shown) {
        if (keepsLines && character == u'\n') continue;
        if (leavesItsPlace(character)) character = QChar(u'\u2423');
    }
    return shown;
}

QString Speech::shown(const QString& text, bool keepsLines) const {
    return shownText(text, keepsLines);
}

QString Speech::percent(double fraction) const {
    const double part = fraction > 0 ? std::min(fraction, 1.0) : 0;
    return QString::number(std::lround(part * 100)) + u'%';
}

}  // namespace morvane
