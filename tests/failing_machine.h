#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "common/runtime_failure.h"
#include "platform/files.h"
#include "platform/registry.h"

namespace vrix {

// A registry and files in front of the real ones. While it counts, it logs the program's calls and refuses those from
// `first` to `last`. Calls that cannot fail are passed through without a log entry.
//
// A log entry is "what path\name": "create", "change" (an opening to change), "open" (to read), "close", "set", "erase"
// a value, "remove" a key, "size" and "data" (the two queries of a value), "info", and "enum" with "@" and the index as
// name. A call that opens a key logs the name used with it next; "?" marks one that failed by itself. Of files: "drop",
// "make", "write" with the section that the line stands in, "finish"; "openText", "readLine".
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
    std::function<void()> before;  // runs before each call
    std::vector<std::string> calls;
    std::string written;  // the lines of all files

    RegistryStatus openKey(Key parent, Text path, Number rights, Key& key) override {
        path_ = path;
        const char* what = rights == access::change ? "change " : "open ";
        return opened(run(what, "", &Registry::openKey, parent, path, rights, key), key);
    }
    RegistryStatus createKey(Key parent, Text path, Number rights, Key& key) override {
        path_ = path;
        return opened(run("create ", "", &Registry::createKey, parent, path, rights, key), key);
    }
    // Also when the close is refused, the real key is closed.
    RegistryStatus closeKey(Key key) override {
        path_ = paths_[key];
        paths_.erase(key);
        const RegistryStatus status = registry_.closeKey(key);
        return refuses("close " + path_) ? RegistryStatus::accessDenied : status;
    }
    // The bytes of a value are asked for by a query of their own.
    RegistryStatus queryValue(Key key, Text name, ValueData& value) override {
        path_ = paths_[key];
        const RegistryStatus status = run("size ", name, &Registry::queryValue, key, name, value);
        if (status != RegistryStatus::success || value.bytes.empty()) return status;
        if (refuses("data " + path_ + '\\' + name)) value.bytes.assign(value.bytes.size(), '\0');
        return status;
    }
    RegistryStatus setValue(Key key, Text name, Number type, std::string_view bytes) override {
        path_ = paths_[key];
        return run("set ", name, &Registry::setValue, key, name, type, bytes);
    }
    RegistryStatus deleteKey(Key parent, Text path) override {
        path_ = path;
        return run("remove ", "", &Registry::deleteKey, parent, path);
    }
    RegistryStatus deleteValue(Key key, Text name) override {
        path_ = paths_[key];
        return run("erase ", name, &Registry::deleteValue, key, name);
    }
    RegistryStatus listKeys(Key key, std::vector<std::string>& names) override {
        path_ = paths_[key];
        return run("keys ", "", &Registry::listKeys, key, names);
    }
    // A listing asks for the longest name, and then for one name after the other.
    RegistryStatus listValues(Key key, std::vector<std::string>& names, std::vector<ValueData>* values) override {
        path_ = paths_[key];
        const RegistryStatus status = run("info ", "", &Registry::listValues, key, names, values);
        for (std::size_t i = 0; status == RegistryStatus::success && i <= names.size(); ++i) {
            const bool isEnd = i == names.size();
            if (refuses("enum " + path_ + "\\@" + std::to_string(i)))
                return names.resize(i), RegistryStatus::accessDenied;
            if (counts && isEnd) calls.back() += '?';
        }
        return status;
    }
    std::string expandEnvironment(Text text) override { return registry_.expandEnvironment(text); }

    std::size_t openKeys() const { return paths_.size(); }

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
        if (counts && status != RegistryStatus::success) calls.back() += '?';
        return status;
    }
    RegistryStatus opened(RegistryStatus status, const Key& key) {
        if (status == RegistryStatus::success) paths_[key] = path_;
        return status;
    }

    Registry& registry_;
    Files& files_;
    std::string path_;
    std::map<Key, std::string> paths_;  // of the open keys
};

}  // namespace vrix
