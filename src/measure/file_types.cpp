#include "measure/file_types.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

// What the extensions of plain files say of their type, in lower case and in ascending order. An
// extension that no list holds is of a type about which nothing is known.

namespace morvane {

namespace {

// Moving pictures, with sound or without.
constexpr std::string_view videos[] = {
    "3g2", "3gp",  "3gpp", "asf", "avi", "braw", "divx", "dv",  "f4v", "flv",  "hevc", "insv",
    "lrv", "m2ts", "m2v",  "m4v", "mkv", "mod",  "mov",  "mp4", "mpe", "mpeg", "mpg",  "mpv",
    "mts", "mxf",  "ogv",  "qt",  "r3d", "rm",   "rmvb", "tod", "ts",  "vob",  "webm", "wmv"};

constexpr std::string_view sounds[] = {"aa",   "aac", "aax",  "ac3",  "aif", "aifc", "aiff", "alac",
                                       "amr",  "ape", "au",   "caf",  "cda", "dff",  "dsf",  "eac3",
                                       "flac", "m4a", "m4b",  "m4p",  "m4r", "mid",  "midi", "mka",
                                       "mp2",  "mp3", "mpga", "oga",  "ogg", "opus", "sf2",  "snd",
                                       "tta",  "w64", "wav",  "wave", "wma", "wv"};

// Images of disks are archives to the system as well: asked before those.
constexpr std::string_view diskImages[] = {
    "cdr",         "dc42",  "dmg",  "dvdr", "hdd",   "hds",  "img",
    "iso",         "mdf",   "ndif", "nrg",  "qcow2", "smi",  "sparsebundle",
    "sparseimage", "toast", "udif", "vdi",  "vhd",   "vhdx", "vmdk"};

constexpr std::string_view archives[] = {
    "7z",  "a",    "aar",  "ace", "apk",  "arj",  "bin",   "br",  "bz2",  "cab", "cbr",
    "cbz", "cpgz", "cpio", "crx", "deb",  "ear",  "gem",   "gz",  "hqx",  "ipa", "ipsw",
    "jar", "lz",   "lz4",  "lzh", "lzma", "mpkg", "nupkg", "pax", "pkg",  "rar", "rpm",
    "sea", "sit",  "sitx", "tar", "tbz",  "tbz2", "tgz",   "txz", "tzst", "uu",  "war",
    "whl", "xar",  "xip",  "xpi", "xz",   "yaa",  "z",     "zip", "zipx", "zst"};

// Content of every other kind: text and source text, pictures, type, models in three dimensions.
constexpr std::string_view documents[] = {
    "3ds",      "3fr",      "abc",   "afdesign",   "afphoto", "afpub",       "ai",     "arw",
    "asm",      "ass",      "avif",  "azw",        "azw3",    "blend",       "bmp",    "c",
    "cc",       "cpp",      "cr2",   "cr3",        "crw",     "cs",          "css",    "csv",
    "cxx",      "dae",      "dart",  "dfont",      "djvu",    "dng",         "doc",    "docm",
    "docx",     "dot",      "dotx",  "drawio",     "dwg",     "dxf",         "eml",    "emlx",
    "enex",     "eps",      "epub",  "erf",        "exr",     "f90",         "fbx",    "fff",
    "fig",      "gif",      "glb",   "gltf",       "go",      "graffle",     "h",      "hdr",
    "heic",     "heif",     "hif",   "hpp",        "htm",     "html",        "iba",    "ibooks",
    "icns",     "ico",      "ics",   "idml",       "iiq",     "indd",        "j2k",    "java",
    "jp2",      "jpe",      "jpeg",  "jpg",        "js",      "json",        "jsx",    "jxl",
    "key",      "kt",       "kth",   "kts",        "latex",   "less",        "log",    "lua",
    "m",        "markdown", "mbox",  "md",         "mhtml",   "mjs",         "mm",     "mobi",
    "mpp",      "msg",      "nef",   "nrw",        "numbers", "numbers-tef", "obj",    "odp",
    "ods",      "odt",      "one",   "orf",        "otc",     "otf",         "ott",    "oxps",
    "pages",    "pas",      "pct",   "pdf",        "pef",     "pfa",         "pfb",    "php",
    "pict",     "pl",       "plist", "ply",        "png",     "pot",         "potx",   "pps",
    "ppsx",     "ppt",      "pptm",  "pptx",       "ps",      "psb",         "psd",    "py",
    "r",        "raf",      "raw",   "rb",         "rs",      "rst",         "rtf",    "rtfd",
    "rw2",      "rwl",      "s",     "scala",      "scn",     "scss",        "sketch", "skp",
    "sql",      "sr2",      "srf",   "srt",        "srw",     "step",        "stl",    "stp",
    "sub",      "suit",     "svg",   "svgz",       "swift",   "tex",         "text",   "textbundle",
    "textpack", "tga",      "tif",   "tiff",       "tsv",     "tsx",         "ttc",    "ttf",
    "txt",      "usd",      "usda",  "usdc",       "usdz",    "vb",          "vcf",    "vsd",
    "vsdx",     "vtt",      "vue",   "webarchive", "webp",    "woff",        "woff2",  "x3f",
    "xcf",      "xd",       "xhtml", "xls",        "xlsb",    "xlsm",        "xlsx",   "xlt",
    "xltx",     "xml",      "xps",   "yaml",       "yml"};

// What can be run, and documents and archives that carry programs with them.
constexpr std::string_view executables[] = {
    "action",  "app",  "appimage", "applescript", "bash",  "bat",  "class", "cmd",  "com",
    "command", "csh",  "dll",      "docm",        "dylib", "elf",  "exe",   "jar",  "ksh",
    "msi",     "o",    "pptm",     "ps1",         "pyc",   "qtz",  "run",   "scpt", "sh",
    "so",      "tool", "wasm",     "workflow",    "xlsb",  "xlsm", "zsh"};

static_assert(std::ranges::is_sorted(videos) && std::ranges::is_sorted(sounds) &&
              std::ranges::is_sorted(diskImages) && std::ranges::is_sorted(archives) &&
              std::ranges::is_sorted(documents) && std::ranges::is_sorted(executables));

}  // namespace

std::optional<FileKind> kindOfType(std::string_view extension) {
    if (std::ranges::binary_search(videos, extension)) return FileKind::video;
    if (std::ranges::binary_search(sounds, extension)) return FileKind::audio;
    if (std::ranges::binary_search(diskImages, extension)) return FileKind::diskImage;
    if (std::ranges::binary_search(archives, extension)) return FileKind::archive;
    if (std::ranges::binary_search(documents, extension)) return FileKind::document;
    return std::nullopt;
}

bool isExecutableType(std::string_view extension) {
    return std::ranges::binary_search(executables, extension);
}

}  // namespace morvane
