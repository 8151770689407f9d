#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/runtime_failure.h"
#include "platform/files.h"
#include "platform/registry.h"

namespace vrix {

// A registry and files before the true ones. While it counts, it tells the calls that the program makes and refuses
// those from `first` to `last`. What cannot fail is let through untold.
//
// A call is told as "what path\name": "create", "change" (an opening to change), "open" (to read), "close", "set",
// "erase" a value, "remove" a key, "size" and "data" (the two queries of a value), "info", and "enum" with "@" and the
// index as name. A call that opens a key bears the name that comes next; "?" marks one that failed by itself. Of files:
// "drop", "make", "write" with the section that the line stands in, "finish"; "openText", "readLine".
class FailingMachine final : public Registry, public Files {
    using enum FailureNumber;
    using Key = RegistryKey;
    using Text = const std::string&;
    using Number = std::uint32_t;
    using StreamPointer = std::unique_ptr<TextStream>;

public:
    FailingMachine(Registry& registry, Files& files) : registry_(registry), files_(files) {}

    bool counts = false;
    int first = -1;
    int last = -1;
    bool namesAlone = false;       // listings give no data
    std::function<void()> before;  // runs before each call
    std::vector<std::string> calls;
    std::string written;  // the lines of all files
    int openKeys = 0;     // the program opens one at a time

    RegistryStatus openKey(Key parent, Text path, Number rights, Key& key) override {
        path_ = path;
        const char* what = rights == access::change ? "change " : "open ";
        return opened(run(what, "", &Registry::openKey, parent, path, rights, key));
    }
    RegistryStatus createKey(Key parent, Text path, Number rights, Key& key) override {
        path_ = path;
        return opened(run("create ", "", &Registry::createKey, parent, path, rights, key));
    }
    // A key that is said to have stayed open is closed all the same.
    RegistryStatus closeKey(Key key) override {
        --openKeys;
        const RegistryStatus status = registry_.closeKey(key);
        return refuses("close " + path_) ? RegistryStatus::accessDenied : status;
    }
    RegistryStatus queryValue(Key key, Text name, Number& type, void* data, Number& size) override {
        return run(size == 0 ? "size " : "data ", name, &Registry::queryValue, key, name, type, data, size);
    }
    RegistryStatus setValue(Key key, Text name, Number type, const void* data, Number size) override {
        return run("set ", name, &Registry::setValue, key, name, type, data, size);
    }
    RegistryStatus deleteKey(Key parent, Text path) override {
        path_ = path;
        return run("remove ", "", &Registry::deleteKey, parent, path);
    }
    RegistryStatus deleteValue(Key key, Text name) override {
        return run("erase ", name, &Registry::deleteValue, key, name);
    }
    RegistryStatus enumKey(Key key, Number index, char* name, Number capacity) override {
        return run("keys ", '@' + std::to_string(index), &Registry::enumKey, key, index, name, capacity);
    }
    RegistryStatus enumValue(Key key, Number index, char* name, Number& length,
                             std::optional<ValueData>* data) override {
        const std::string at = '@' + std::to_string(index);
        const RegistryStatus status = run("enum ", at, &Registry::enumValue, key, index, name, length, data);
        if (namesAlone && data != nullptr) data->reset();
        return status;
    }
    RegistryStatus queryInfoKey(Key key, Number& longest) override {
        return run("info ", "", &Registry::queryInfoKey, key, longest);
    }
    std::string expandEnvironment(Text text) override { return registry_.expandEnvironment(text); }

    bool exists(Text path) override { return files_.exists(path); }
    void remove(Text path) override { pass("drop", permissionDenied, files_).remove(path); }
    StreamPointer createText(Text path) override {
        return std::make_unique<Stream>(*this, pass("make", pathNotFound, files_).createText(path));
    }
    StreamPointer openText(Text path) override {
        return std::make_unique<Stream>(*this, pass("openText", fileNotFound, files_).openText(path));
    }

private:
    struct Stream final : TextStream {
        Stream(FailingMachine& owner, StreamPointer stream) : machine(owner), inner(std::move(stream)) {}
        void writeLine(Text text) override {
            if (text.starts_with('[')) section = text;
            machine.pass("write " + section, permissionDenied, *inner).writeLine(text);
            machine.written += text + "\r\n";
        }
        std::string readLine() override { return machine.pass("readLine", inputPastEnd, *inner).readLine(); }
        bool atEnd() override { return inner->atEnd(); }
        void close() override { machine.pass("finish", permissionDenied, *inner).close(); }
        FailingMachine& machine;
        StreamPointer inner;
        std::string section;
    };

    bool refuses(Text told) {
        if (!counts) return false;
        if (before) before();
        calls.push_back(told);
        const int number = static_cast<int>(calls.size()) - 1;
        return first <= number && number <= last;
    }
    template <class To>
    To& pass(Text told, FailureNumber refusal, To& to) {
        if (refuses(told)) throw RuntimeFailure(refusal);
        return to;
    }
    template <class Method, class... Args>
    RegistryStatus run(Text what, Text name, Method method, Args&&... args) {
        if (counts && !calls.empty() && calls.back().ends_with(path_ + '\\')) calls.back() += name;
        if (refuses(what + path_ + '\\' + name)) return RegistryStatus::accessDenied;
        const RegistryStatus status = (registry_.*method)(args...);
        if (counts && status != RegistryStatus::success && status != RegistryStatus::moreData) calls.back() += '?';
        return status;
    }
    RegistryStatus opened(RegistryStatus status) {
        openKeys += status == RegistryStatus::success;
        return status;
    }

    Registry& registry_;
    Files& files_;
    std::string path_;
};

}  // namespace vrix
