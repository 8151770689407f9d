#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace vrix {

// One line of text of any length.
class TextBox final : public Control {
public:
    TextBox(Container& parent, std::string_view name, const Place& place) : Control(parent, name, place) {}

    // Raised when the text changes, by code or by the user.
    std::function<void()> onChange;
    // The button that Enter presses while the box has the focus and holds a text. Null: the page's own.
    const Control* enterPresses = nullptr;

    const std::string& text() const { return text_; }
    void setText(const std::string& text);

    std::string stored() const override { return text_; }
    void restore(const std::string& text) override { setText(text); }
    void clear() override { setText({}); }

private:
    std::string text_;
};

// Its caption is shown as typed: "&" is an ordinary character.
class CheckBox final : public Captioned {
public:
    CheckBox(Container& parent, std::string_view name, const Place& place, std::string_view caption)
        : Captioned(parent, name, place, caption) {}

    int value() const { return value_; }
    void setValue(int value);  // 0 or 1; anything else is failure 380

    std::string stored() const override { return std::to_string(value_); }
    void restore(const std::string& text) override;
    void clear() override { setValue(0); }

private:
    int value_ = 0;
};

// One of the option buttons of its container, of which at most one is chosen. In its caption "&&" stands for "&".
class OptionButton final : public Captioned {
public:
    OptionButton(Container& parent, std::string_view name, const Place& place) : Captioned(parent, name, place) {}

    // Raised when the button becomes the chosen one, by code or by the user.
    std::function<void()> onClick;

    bool chosen() const { return chosen_; }
    void choose();

private:
    bool chosen_ = false;
};

// A drop-down list of rows, at most one of them current. It takes no typed text.
class ComboBox final : public Control {
public:
    ComboBox(Container& parent, std::string_view name, const Place& place) : Control(parent, name, place) {}

    // Raised when another row becomes current by code, and at every choice by the user.
    std::function<void()> onClick;

    const std::vector<std::string>& rows() const { return rows_; }
    int count() const { return static_cast<int>(rows_.size()); }
    void addItem(const std::string& text) { insertItem(text, count()); }
    void insertItem(const std::string& text, int row);  // failure 5 for a row beyond the end
    void removeItem(int row);                           // failure 5 for a row that is not there

    int listIndex() const { return current_; }  // -1: no current row
    void setListIndex(int row);                 // failure 380 outside the rows; -1 is allowed
    std::string text() const;                   // of the current row, or empty
    void userChooses(int row);

    std::string stored() const override { return std::to_string(current_); }
    void restore(const std::string& text) override;  // refuses -1 too
    void clear() override;

private:
    std::vector<std::string> rows_;
    int current_ = -1;
};

// A list of rows, any of which can be marked. With each row the program keeps a number of its own.
class MarkList final : public Control {
public:
    struct Row {
        std::string text;
        int itemData;
        bool marked;
    };

    MarkList(Container& parent, std::string_view name, const Place& place) : Control(parent, name, place) {}

    // Raised after marking. When code marks several rows at once, it is raised once, after the last.
    std::function<void()> onClick;

    const std::vector<Row>& rows() const { return rows_; }
    int count() const { return static_cast<int>(rows_.size()); }
    void addItem(const std::string& text, int itemData);
    // Marks the rows in turn and raises the click if there was one; failure 380 for a row that is not there.
    void mark(const std::vector<int>& rows);
    void userMarks(int row, bool marked);

    void clear() override;

private:
    void setMarked(int row, bool marked);
    std::vector<Row> rows_;
};

}  // namespace vrix
