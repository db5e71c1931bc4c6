#pragma once

#include <string>

namespace morvane::linuxdesktop {

// Has the desktop open an encoded URL with the program the user has chosen for it. Whether one was
// started; where none is, nothing happens. Main thread, with an application object.
bool openByDesktop(const std::string& encodedURL);

}  // namespace morvane::linuxdesktop
