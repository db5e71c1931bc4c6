#include <array>

#include "mac.h"

namespace morvane::sample {
namespace {

/// Names that are all legal on a disk, each hard in its own way.
constexpr std::array<std::string_view, 26> names{
    "会议记录 2026.txt",
    "第三季度报告（最终版）.pdf",
    "ملاحظات الاجتماع.txt",
    "עברית.txt",
    "Отчёт за март.txt",
    "Ελληνικά.txt",
    "日本語のメモ.md",
    "한국어 메모.txt",
    "บันทึก.txt",
    "हिन्दी.txt",
    "🦊 ideas 🚀.md",
    "👩‍👩‍👧‍👦 family list.txt",
    "cafe\u0301 composed apart.txt",
    "caf\u00e9 composed.txt",
    "Z\u0351\u036b\u0343alg\u0330o.txt",
    "right\u202eto left.txt",
    "two\nlines.txt",
    "tab\there.txt",
    " leading blank.txt",
    "trailing blank ",
    "ends in a dot.",
    "100% done.txt",
    "%41 and %2F.txt",
    "quote \" and ' and \\ back.txt",
    "<b>not bold</b> & more.txt",
    "-rf",
};

/// Bytes that are no UTF-8: Latin-1, a lone continuation, and a cut-off sequence.
constexpr std::array<std::string_view, 3> rawNames{
    "r\xe9sum\xe9 latin.txt",
    "lone \x80 byte.txt",
    "cut \xe6\x97",
};

}  // namespace

void planOddNames(Mac& mac) {
    Plan& disk = mac.disk;
    const std::string folder = inHome("Documents/Names of the World/");
    double days = 20;
    for (const std::string_view name : names) {
        disk.text(folder + std::string(name), "a line of text\n", days);
        days += 31;
    }
    for (const std::string_view name : rawNames) {
        disk.text(folder + std::string(name), "a line of text\n", days);
    }
    disk.text(folder + std::string(251, 'n') + ".txt", "a long name\n", 80);
    std::string wide;
    while (wide.size() + 3 <= 255) {
        wide += "長";
    }
    disk.text(folder + wide, "a long name of 85 letters\n", 81);
    disk.file(inHome("Documents/Архив/Видео с дачи.mov"), {.amount = 105, .keepsSize = true}, 450);
    disk.file(inLibrary("Caches/日本.例.Reader/キャッシュ.db"), {.amount = 2, .atLeast = 0.01}, 75);

    const std::string links = inHome("Documents/Links/");
    disk.text(links + "target.txt", "what the links point at\n", 50);
    disk.link(links + "beside", "target.txt");
    disk.link(links + "up", "../Budget.numbers");
    disk.link(links + "absolute", "/Users/sam/Documents/Links/target.txt");
    disk.link(links + "folder", "/Users/sam/Movies");
    disk.link(links + "nowhere", "/Users/sam/Documents/gone.txt");
    disk.link(links + "above all", "../../../../../../../../../../etc");
    disk.link(links + "loop-a", "loop-b");
    disk.link(links + "loop-b", "loop-a");
    disk.link(links + "self", "self");
    disk.link(links + "here", ".");
    disk.hardLink(links + "same file", links + "target.txt");

    // Folders inside folders, deeper than most programs care to go.
    std::string deep = inHome("Documents/Deep");
    for (int level = 0; level < 60; ++level) {
        deep += "/level" + std::to_string(level);
    }
    disk.text(deep + "/bottom.txt", "down here\n", 365);
    disk.folderOfAge(inHome("Documents/Empty Folder"), 150);
    disk.text(inHome("Documents/locked note.txt"), "nobody writes this\n", 600, 0400);
}

}  // namespace morvane::sample
