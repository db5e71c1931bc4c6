#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "system/driver_client.h"
#include "system/test_disk.h"

namespace morvane::test {

// A disk and the driver that works on it. The driver starts, with what host.json says by then, when
// it is first asked for.
class SystemTest : public testing::Test {
protected:
    explicit SystemTest(TestDisk::For purpose = TestDisk::For::quickness) : disk(purpose) {}

    DriverClient& driver() {
        if (!driver_) {
            disk.writeHost();
            driver_ = std::make_unique<DriverClient>(disk.folder());
        }
        return *driver_;
    }
    // Ends the driver; the next use starts another on the same disk.
    int endDriver() {
        const int status = driver().end();
        driver_.reset();
        return status;
    }

    // A whole scan, waited for.
    void scan() { driver().call("startScan", {{"showOverview", true}}); }

    TestDisk disk;

private:
    std::unique_ptr<DriverClient> driver_;
};

class BigFilesTest : public SystemTest {
protected:
    BigFilesTest() : SystemTest(TestDisk::For::bigFiles) {}
};

// The record with that value under `key`; null when there is none.
inline Json with(const Json& list, const std::string& value, const std::string& key = "id") {
    for (const Json& record : list) {
        if (record.at(key) == value) return record;
    }
    return nullptr;
}

// The values under `key` of all records, in order.
inline Json all(const Json& list, const std::string& key) {
    Json values = Json::array();
    for (const Json& record : list) values.push_back(record.at(key));
    return values;
}

// The paths that a cleanup item would remove, in order.
inline Json pathsOf(const Json& item) {
    return all(item.at("action").at("trash"), "url");
}

inline Json sorted(Json list) {
    std::sort(list.begin(), list.end());
    return list;
}

}  // namespace morvane::test
