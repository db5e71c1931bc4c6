#include "services/feed/feed_document.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

#include "services/feed/feed_weight.h"

namespace morvane {

namespace {

constexpr std::size_t deepest = 32;
constexpr std::size_t mostItems = 1000;
constexpr qsizetype longestNotes = 10'000;
constexpr qsizetype longestField = 4096;

// One line without control characters, as a field of an item is shown or compared. Marks that turn
// the direction of writing go too: they make one version look like another.
std::string fieldText(QStringView text) {
    QString kept;
    for (const QChar c : text.left(longestField)) {
        if (c.category() != QChar::Other_Control && c.category() != QChar::Other_Format) kept += c;
    }
    return kept.trimmed().toStdString();
}

std::string notesText(const QString& text) {
    QString kept;
    for (const QChar c : text) {
        if (c == u'\n' || c.category() != QChar::Other_Control) kept += c;
        if (c == u'\t') kept += u' ';
    }
    kept = kept.trimmed();
    if (kept.size() > longestNotes) {
        kept.truncate(longestNotes);
        // Not between the halves of a letter.
        if (kept.back().isHighSurrogate()) kept.chop(1);
        kept += u'…';
    }
    return kept.toStdString();
}

class FeedReader {
public:
    explicit FeedReader(const QString& text) : xml_(text) {}

    std::optional<std::vector<FeedItem>> read() {
        while (!xml_.atEnd()) {
            if (!take(xml_.readNext())) return std::nullopt;
        }
        if (xml_.hasError() || !sawRoot_) return std::nullopt;
        return std::move(items_);
    }

private:
    [[nodiscard]] bool isInItem() const {
        return path_.size() == 3 && path_[1] == u"channel" && path_[2] == u"item";
    }

    bool take(QXmlStreamReader::TokenType token) {
        if (token == QXmlStreamReader::DTD || token == QXmlStreamReader::EntityReference) {
            return false;
        }
        if (token == QXmlStreamReader::StartElement) return enter(xml_.name().toString());
        if (token == QXmlStreamReader::EndElement) leave();
        if (token == QXmlStreamReader::Characters && path_.size() == 4) text_ += xml_.text();
        return true;
    }

    bool enter(const QString& name) {
        if (path_.empty() && name != u"rss") return false;
        sawRoot_ = true;
        if (isInItem()) {
            text_.clear();
            if (name == u"enclosure") takeEnclosure();
        }
        path_.push_back(name);
        if (path_.size() > deepest) return false;
        if (isInItem()) items_.emplace_back();
        return items_.size() <= mostItems;
    }

    void leave() {
        const QString name = path_.back();
        path_.pop_back();
        if (!isInItem()) return;
        FeedItem& item = items_.back();
        if (name == u"description") item.notes = notesText(text_);
        // What stands on the enclosure counts.
        if (name == u"version" && item.version.empty()) item.version = fieldText(text_);
        if (name == u"shortVersionString" && item.shownVersion.empty()) {
            item.shownVersion = fieldText(text_);
        }
    }

    void takeEnclosure() {
        FeedItem& item = items_.back();
        // The last one counts, whole: pieces of two enclosures describe no file.
        item.address.clear();
        item.signature.clear();
        item.length = 0;
        for (const QXmlStreamAttribute& attribute : xml_.attributes()) {
            const QStringView name = attribute.name();
            const QStringView value = attribute.value();
            if (name == u"url") item.address = fieldText(value);
            if (name == u"edSignature") item.signature = fieldText(value);
            if (name == u"version") item.version = fieldText(value);
            if (name == u"shortVersionString") item.shownVersion = fieldText(value);
            if (name == u"length") item.length = value.toLongLong();
        }
    }

    QXmlStreamReader xml_;
    std::vector<QString> path_;  // names of the open elements
    QString text_;               // of the innermost element of an item
    bool sawRoot_ = false;
    std::vector<FeedItem> items_;
};

}  // namespace

std::optional<std::vector<FeedItem>> readFeed(std::string_view bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text =
        decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    if (decoder.hasError() || !isLightXML(bytes)) return std::nullopt;
    return FeedReader(text).read();
}

}  // namespace morvane
