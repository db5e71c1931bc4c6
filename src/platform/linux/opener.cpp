#include "platform/linux/opener.h"

#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>

namespace morvane::linuxdesktop {

bool openByDesktop(const std::string& encodedURL) {
    const QUrl url = QUrl::fromEncoded(QByteArray::fromStdString(encodedURL), QUrl::StrictMode);
    return url.isValid() && QDesktopServices::openUrl(url);
}

}  // namespace morvane::linuxdesktop
