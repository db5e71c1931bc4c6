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
           (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool isMark(char32_t character) {
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing;
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

bool pilesUp(const QString& text) {
    constexpr int usual = 3;
    int pile = 0;
    for (qsizetype place = 0; place < text.size(); ++place) {
        char32_t character = text[place].unicode();
        if (text[place].isHighSurrogate() && place + 1 < text.size()) {
            character = QChar::surrogateToUcs4(text[place], text[place + 1]);
            ++place;
        }
        pile = isMark(character) ? pile + 1 : 0;
        if (pile > usual) return true;
    }
    return false;
}

QString Speech::shown(const QString& text, bool keepsLines) const {
    return shownText(text, keepsLines);
}

QString Speech::percent(double fraction) const {
    const double part = fraction > 0 ? std::min(fraction, 1.0) : 0;
    return QString::number(std::lround(part * 100)) + u'%';
}

}  // namespace morvane
