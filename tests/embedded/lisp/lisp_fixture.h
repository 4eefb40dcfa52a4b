// An interpreter with a host that writes down what it is asked.
#pragma once

#include "base/encoding.h"
#include "embedded/lisp/interpreter.h"
#include "tests/support/memory_files.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace drafta::lisp::test {

class RecordingServices final : public Services {
public:
    void print(ryv::CStringView text) override { printed += text; }
    ryv::Files& files() override { return memory; }
    ryv::SystemPaths& paths() override { return nullPaths; }
    ryv::CString findFile(ryv::CStringView name) override {
        const ryv::CString path = searchPath + ryv::CString(name);
        return memory.get(path) ? path : ryv::CString();
    }
    std::optional<ryv::CString> getEnvironment(ryv::CStringView name) override {
        const auto hit = environment.find(ryv::CString(name));
        return hit == environment.end() ? std::nullopt : std::optional(hit->second);
    }
    void setEnvironment(ryv::CStringView name, ryv::CStringView value) override {
        environment[ryv::CString(name)] = value;
    }

    ryv::CString printed;
    ryv::CString searchPath = u"\\lisp\\";
    ryv::test::MemoryFiles memory;
    ryv::NullSystemPaths nullPaths;
    std::map<ryv::CString, ryv::CString> environment;
};

inline std::string utf8(ryv::CStringView text) {
    return ryv::toUtf8(text);
}

/// A test with an interpreter that collects at every chance, so that a value that is not held shows.
class LispTest : public ::testing::Test {
protected:
    explicit LispTest(const Limits& limits = {.collectAlways = true}) : lisp(services, limits) {}

    /// The printed value of the last form, or "error: " and the message.
    std::string run(std::string_view code, std::string_view source = {}) {
        const Result result = lisp.evaluate(ryv::decodeUtf8(code), ryv::decodeUtf8(source));
        return result.ok() ? utf8(lisp.printed(result.value)) : "error: " + utf8(result.error->message);
    }
    /// The whole description of the error.
    std::string failure(std::string_view code, std::string_view source = {}) {
        const Result result = lisp.evaluate(ryv::decodeUtf8(code), ryv::decodeUtf8(source));
        return result.ok() ? "no error" : utf8(describe(*result.error));
    }
    std::string printed() {
        const std::string text = utf8(services.printed);
        services.printed.clear();
        return text;
    }

    RecordingServices services;
    Interpreter lisp;
};

struct Case {
    const char* code;
    const char* result;
};

} // namespace drafta::lisp::test
