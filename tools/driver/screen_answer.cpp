#include "driver/screen_answer.h"

#include <utility>
#include <vector>

namespace morvane::driver {

namespace {

// Builds the answer as it is told: what is open stands on a stack, innermost last.
class AnswerWriter final : public screens::FieldWriter {
public:
    void beginRecord() override { open_.push_back({Answer::object(), std::move(name_)}); }
    void endRecord() override { close(); }
    void beginList() override { open_.push_back({Answer::array(), std::move(name_)}); }
    void endList() override { close(); }
    void name(std::string_view name) override { name_ = name; }
    void null() override { add(nullptr); }
    void boolean(bool value) override { add(value); }
    void integer(std::int64_t value) override { add(value); }
    void number(double value) override { add(value); }
    void text(std::string_view value) override { add(std::string(value)); }

    [[nodiscard]] Answer take() { return std::move(whole_); }

private:
    struct Open {
        Answer value;
        std::string name;  // of the value itself in what holds it
    };

    void close() {
        Open closed = std::move(open_.back());
        open_.pop_back();
        name_ = std::move(closed.name);
        add(std::move(closed.value));
    }

    void add(Answer value) {
        if (open_.empty()) {
            whole_ = std::move(value);
        } else if (open_.back().value.is_array()) {
            open_.back().value.push_back(std::move(value));
        } else {
            open_.back().value[name_] = std::move(value);
        }
    }

    std::vector<Open> open_;
    std::string name_;
    Answer whole_;
};

}  // namespace

Answer screenAnswer(const screens::Screen& screen) {
    AnswerWriter writer;
    screen.write(writer);
    return writer.take();
}

}  // namespace morvane::driver
