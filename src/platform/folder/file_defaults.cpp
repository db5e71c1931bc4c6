#include "platform/folder/file_defaults.h"

#include <utility>

#include "model/path_text.h"
#include "platform/folder/defaults_file.h"
#include "platform/formats/property_list_weight.h"

namespace morvane::folder {

namespace {

PropertyList readList(const DiskRoot& disk, const std::filesystem::path& path) {
    const std::optional<std::string> bytes = readWholeFile(disk, path, PropertyListLimits::bytes);
    std::optional<PropertyList> list = bytes ? readPropertyList(*bytes) : std::nullopt;
    if (!list || !list->dictionary()) return {PropertyList::Dictionary()};
    return std::move(*list);
}

bool isWritable(const std::string& text) {
    return text.find('\0') == std::string::npos && isUTF8(text);
}

}  // namespace

FileDefaults::FileDefaults(const DiskRoot& disk, std::filesystem::path path)
    : list_(readList(disk, path)),
      writer_([&disk, path = std::move(path)](const std::string& bytes) {
          return !replaceWholeFile(disk, path, bytes);
      }) {}

FileDefaults::~FileDefaults() {
    stop();
}

const PropertyList* FileDefaults::find(const std::string& key) const {
    return list_.find(key);
}

std::optional<bool> FileDefaults::boolean(const std::string& key) const {
    const PropertyList* value = find(key);
    return value ? value->boolean() : std::nullopt;
}

std::optional<std::string> FileDefaults::text(const std::string& key) const {
    const PropertyList* value = find(key);
    const std::string* text = value ? value->text() : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<Instant> FileDefaults::date(const std::string& key) const {
    const PropertyList* value = find(key);
    return value ? value->date() : std::nullopt;
}

std::optional<std::string> FileDefaults::data(const std::string& key) const {
    const PropertyList* value = find(key);
    const std::string* bytes = value ? value->data() : nullptr;
    return bytes ? std::optional(*bytes) : std::nullopt;
}

std::optional<std::vector<std::string>> FileDefaults::texts(const std::string& key) const {
    const PropertyList* value = find(key);
    const PropertyList::Array* array = value ? value->array() : nullptr;
    if (!array) return std::nullopt;
    std::vector<std::string> texts;
    for (const PropertyList& item : *array) {
        const std::string* text = item.text();
        if (!text) return std::nullopt;
        texts.push_back(*text);
    }
    return texts;
}

void FileDefaults::setBoolean(const std::string& key, bool value) {
    set(key, value);
}

void FileDefaults::setText(const std::string& key, const std::string& value) {
    if (isWritable(value)) set(key, value);
}

void FileDefaults::setDate(const std::string& key, Instant value) {
    set(key, value);
}

void FileDefaults::setData(const std::string& key, const std::string& bytes) {
    set(key, PropertyList::Data{bytes});
}

void FileDefaults::setTexts(const std::string& key, const std::vector<std::string>& values) {
    PropertyList::Array array;
    array.reserve(values.size());
    for (const std::string& value : values) {
        if (!isWritable(value)) return;
        array.push_back({value});
    }
    set(key, std::move(array));
}

void FileDefaults::remove(const std::string& key) {
    if (isStopped_) return;
    std::get<PropertyList::Dictionary>(list_.value).erase(key);
    (void)store();
}

void FileDefaults::flush() {
    writer_.waitUntilIdle();
}

void FileDefaults::stop() {
    if (std::exchange(isStopped_, true)) return;
    // No write comes after it that would make up for a last one that failed.
    writer_.retryIfFailed();
}

void FileDefaults::set(const std::string& key, PropertyList::Value value) {
    if (isStopped_ || !isWritable(key)) return;
    auto& dictionary = std::get<PropertyList::Dictionary>(list_.value);
    const auto [place, isNew] = dictionary.try_emplace(key);
    PropertyList old = std::exchange(place->second, PropertyList{std::move(value)});
    if (store()) return;
    if (isNew) {
        dictionary.erase(place);
    } else {
        place->second = std::move(old);
    }
}

bool FileDefaults::store() {
    std::string bytes = writeBinaryPropertyList(list_);
    if (!weighPropertyList(bytes)) return false;
    writer_.write(std::move(bytes));
    return true;
}

}  // namespace morvane::folder
