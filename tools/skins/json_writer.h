// Writes a JSON document with a line for each member.
#pragma once

#include <string>
#include <string_view>

namespace skin_tool {

class JsonWriter {
public:
    JsonWriter& key(std::string_view name) {
        separate();
        out_ += quoted(name) + ": ";
        afterKey_ = true;
        return *this;
    }
    void text(std::string_view value) { raw(quoted(value)); }
    // What is JSON already.
    void raw(std::string_view json) {
        separate();
        out_ += json;
    }
    template <typename Fill>
    void object(Fill fill) {
        container('{', '}', fill);
    }
    template <typename Fill>
    void array(Fill fill) {
        container('[', ']', fill);
    }
    const std::string& document() const { return out_; }

    static std::string quoted(std::string_view text) {
        std::string quoted = "\"";
        for (const char c : text) {
            if (c == '"' || c == '\\') {
                quoted += '\\';
            }
            quoted += c;
        }
        return quoted + '"';
    }

private:
    void separate() {
        if (afterKey_) {
            afterKey_ = false;
            return;
        }
        if (depth_ > 0) {
            out_ += isFirst_ ? "\n" : ",\n";
            out_.append(2 * depth_, ' ');
        }
        isFirst_ = false;
    }
    template <typename Fill>
    void container(char open, char close, Fill fill) {
        separate();
        out_ += open;
        ++depth_;
        isFirst_ = true;
        fill();
        --depth_;
        if (!isFirst_) {
            out_ += '\n';
            out_.append(2 * depth_, ' ');
        }
        out_ += close;
        isFirst_ = false;
    }

    std::string out_;
    size_t depth_ = 0;
    bool isFirst_ = true;
    bool afterKey_ = false;
};

}  // namespace skin_tool
