#include "platform/package_extensions.h"

#include <algorithm>
#include <array>
#include <string>

namespace morvane {

namespace {

using namespace std::string_view_literals;

// Uniform type declarations of the system that conform to com.apple.package, those of Apple's
// applications and developer tools, and folders that other vendors' applications own as a document.
// All in lower case.
constexpr std::array extensions{"aaxplugin"sv,
                                "abbu"sv,
                                "action"sv,
                                "app"sv,
                                "appex"sv,
                                "aplibrary"sv,
                                "avchd"sv,
                                "band"sv,
                                "bbprojectd"sv,
                                "book"sv,
                                "bundle"sv,
                                "caction"sv,
                                "clap"sv,
                                "cocatalog"sv,
                                "colorpicker"sv,
                                "component"sv,
                                "cosessiondb"sv,
                                "dayone"sv,
                                "dext"sv,
                                "dist"sv,
                                "distz"sv,
                                "doccarchive"sv,
                                "docset"sv,
                                "download"sv,
                                "dsym"sv,
                                "dtbase2"sv,
                                "dtsparse"sv,
                                "esproj"sv,
                                "fcarch"sv,
                                "fcpbundle"sv,
                                "fcpxbundle"sv,
                                "fcpxmld"sv,
                                "fs"sv,
                                "gbproj"sv,
                                "graffle"sv,
                                "hdd"sv,
                                "help"sv,
                                "iba"sv,
                                "icbu"sv,
                                "ideplugin"sv,
                                "imovielibrary"sv,
                                "imoviemobile"sv,
                                "kext"sv,
                                "key"sv,
                                "key-tef"sv,
                                "kth"sv,
                                "logic"sv,
                                "logicx"sv,
                                "lpdf"sv,
                                "lrdata"sv,
                                "lrlibrary"sv,
                                "mbox"sv,
                                "mdimporter"sv,
                                "menu"sv,
                                "migratedphotolibrary"sv,
                                "mlpackage"sv,
                                "mpkg"sv,
                                "musiclibrary"sv,
                                "nib"sv,
                                "nmbtemplate"sv,
                                "numbers"sv,
                                "numbers-tef"sv,
                                "oo3"sv,
                                "ooutline"sv,
                                "pages"sv,
                                "pages-tef"sv,
                                "photolibrary"sv,
                                "photoslibrary"sv,
                                "pkg"sv,
                                "pkpass"sv,
                                "placeholder"sv,
                                "playground"sv,
                                "playgroundbook"sv,
                                "plugin"sv,
                                "pluginkit"sv,
                                "ppp"sv,
                                "prefpane"sv,
                                "pvm"sv,
                                "pvt"sv,
                                "qlgenerator"sv,
                                "rcproject"sv,
                                "rtfd"sv,
                                "saver"sv,
                                "scptd"sv,
                                "scriv"sv,
                                "service"sv,
                                "simdevicetype"sv,
                                "simruntime"sv,
                                "slidesaver"sv,
                                "sparsebundle"sv,
                                "suggestionsassets"sv,
                                "swiftpm"sv,
                                "systemextension"sv,
                                "template"sv,
                                "textbundle"sv,
                                "theater"sv,
                                "trace"sv,
                                "tvlibrary"sv,
                                "utm"sv,
                                "vmwarevm"sv,
                                "vst"sv,
                                "vst3"sv,
                                "wdgt"sv,
                                "webplugin"sv,
                                "workflow"sv,
                                "xcappdata"sv,
                                "xcarchive"sv,
                                "xcdatamodel"sv,
                                "xcdatamodeld"sv,
                                "xcodeproj"sv,
                                "xcresult"sv,
                                "xctest"sv,
                                "xcworkspace"sv,
                                "xpc"sv};

}  // namespace

bool isPackageName(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == name.size()) return false;
    std::string extension(name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return std::find(extensions.begin(), extensions.end(), extension) != extensions.end();
}

}  // namespace morvane
