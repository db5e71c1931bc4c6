#include "file_heads.h"

#include <array>

namespace morvane::sample {
namespace {

using namespace std::string_view_literals;

struct Head {
    std::string_view extension;
    std::string_view bytes;
};

constexpr std::string_view movieHead =
    "\0\0\0\x14"
    "ftypqt  \0\0\2\0qt  "sv;
constexpr std::string_view mp4Head =
    "\0\0\0\x18"
    "ftypmp42\0\0\0\0mp42isom"sv;
constexpr std::string_view zipHead = "PK\3\4\x14\0\0\0\0\0"sv;
constexpr std::string_view sqliteHead = "SQLite format 3\0\x10\0\1\1\0\x40\x20\x20"sv;
constexpr std::string_view machHead = "\xcf\xfa\xed\xfe\x0c\0\0\1\0\0\0\0\2\0\0\0"sv;

constexpr std::array heads{
    Head{".mov", movieHead},
    Head{".mp4", mp4Head},
    Head{".m4v", mp4Head},
    Head{".m4a",
         "\0\0\0\x18"
         "ftypM4A \0\0\0\0M4A mp42"sv},
    Head{".mkv", "\x1a\x45\xdf\xa3"sv},
    Head{".wav", "RIFF\0\0\0\0WAVEfmt "sv},
    Head{".aif", "FORM\0\0\0\0AIFF"sv},
    Head{".flac", "fLaC"sv},
    Head{".mp3", "ID3\4\0"sv},
    Head{".pdf", "%PDF-1.7\n%\xe2\xe3\xcf\xd3\n"sv},
    Head{".jpg", "\xff\xd8\xff\xe0\0\x10JFIF\0"sv},
    Head{".heic",
         "\0\0\0\x18"
         "ftypheic\0\0\0\0mif1heic"sv},
    Head{".zip", zipHead},
    Head{".pages", zipHead},
    Head{".numbers", zipHead},
    Head{".key", zipHead},
    Head{".docx", zipHead},
    Head{".ipa", zipHead},
    Head{".ipsw", zipHead},
    Head{".jar", zipHead},
    Head{".aar", zipHead},
    Head{".gz", "\x1f\x8b\x08"sv},
    Head{".tgz", "\x1f\x8b\x08"sv},
    Head{".xz",
         "\xfd"
         "7zXZ\0"sv},
    Head{".xip", "xar!\0\x1c\0\1"sv},
    Head{".pkg", "xar!\0\x1c\0\1"sv},
    Head{".qcow2", "QFI\xfb\0\0\0\3"sv},
    Head{".db", sqliteHead},
    Head{".sqlite", sqliteHead},
    Head{".a", "!<arch>\n"sv},
    Head{".dylib", machHead},
    Head{".pack", "PACK\0\0\0\2"sv},
};

}  // namespace

std::string headOf(std::string_view path) {
    for (const Head& head : heads) {
        if (path.ends_with(head.extension)) {
            return std::string(head.bytes);
        }
    }
    return path.find("/Contents/MacOS/") != std::string_view::npos ? std::string(machHead)
                                                                   : std::string();
}

}  // namespace morvane::sample
