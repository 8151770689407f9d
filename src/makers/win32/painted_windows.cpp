#include "makers/win32/painted_windows.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "makers/win32/pictures.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

constexpr DWORD buttonStyle = WS_TABSTOP | WS_GROUP | BS_OWNERDRAW;
constexpr UINT captionFormat = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
// A text of several lines: one that is too long ends in "...", and a word without end is broken.
constexpr UINT blockFormat = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL | DT_END_ELLIPSIS;

}  // namespace

void PaintedWindow::drawCaption(HDC dc, Colour colour, const std::string& caption, const RECT& area,
                                UINT format) const {
    const char key = owner().keyboard().cuesShown() ? shownKey(control()) : '\0';
    const std::wstring text = wide(caption);
    if (key == '\0') return drawText(dc, font(), colour, text, area, format);
    drawText(dc, font(), colour, withMark(text, key), area, format & ~static_cast<UINT>(DT_NOPREFIX));
}

void PaintedWindow::update() {
    ControlWindow::update();
    redraw();
}

LRESULT PaintedWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    const RECT area = clientArea();
    switch (message) {
        case WM_NCPAINT: return 0;  // it has no border
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            const Painting painting(handle());
            if (!IsRectEmpty(&area)) paint(Buffer(painting, area).dc(), area);
            return 0;
        }
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam), area); return 0;
        case WM_MOUSEMOVE: {
            // When the pointer leaves to another window, the page gets no other message.
            TRACKMOUSEEVENT leaving{sizeof(leaving), TME_LEAVE, handle(), 0};
            TrackMouseEvent(&leaving);
            owner().followPointer();
            return 0;
        }
        case WM_MOUSELEAVE: owner().followPointer(); return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_ENABLE: redraw(); break;
        default: break;
    }
    return ControlWindow::message(message, wParam, lParam);
}

LabelWindow::LabelWindow(FormWindow& owner, Label& label)
    : PaintedWindow(owner, label, {L"STATIC", WS_GROUP | SS_OWNERDRAW | SS_NOPREFIX}), label_(label) {}

void LabelWindow::update() {
    const std::wstring caption = wide(label_.caption());
    setText(caption);
    PaintedWindow::update();
    const RECT area = clientArea();
    const UINT lines = oneLine() ? DT_SINGLELINE : DT_WORDBREAK | DT_EDITCONTROL;
    const SIZE size = measured(font(), caption, area.right, lines | DT_NOPREFIX);
    const bool cut = oneLine() ? size.cx > area.right : size.cy > area.bottom;
    explain(caption, cut);
    // For the tooltip, and to press its picture. Else mouse messages go to the page.
    setStyle(SS_NOTIFY, cut || label_.presses != nullptr);
}

bool LabelWindow::oneLine() const { return clientArea().bottom < 2 * style().lineHeight(label_.look()); }

// A press on the caption goes to its picture, which captures the mouse.
LRESULT LabelWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool press = message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
    if (!press || label_.presses == nullptr) return PaintedWindow::message(message, wParam, lParam);
    return SendMessageW(owner().find(*label_.presses)->handle(), WM_LBUTTONDOWN, wParam, 0);
}

Colour LabelWindow::colour() const {
    const Palette& palette = style().palette();
    if (!enabled()) return palette.greyText;
    const bool title = label_.look() == Look::heading || label_.look() == Look::product;
    return title ? palette.heading : palette.text;
}

void LabelWindow::paint(HDC dc, const RECT& area) {
    FillRect(dc, &area, GetSysColorBrush(owner().surface(label_)));
    if (label_.look() == Look::section) return paintSection(dc, area);
    // Texts of a window without a title bar are centred.
    UINT format = oneLine() ? captionFormat : blockFormat;
    if (label_.form().border() == Form::Border::none) format |= DT_CENTER;
    RECT text = area;
    if (oneLine()) text.top = std::max<LONG>(0, (area.bottom - style().lineHeight(label_.look())) / 2);
    drawCaption(dc, colour(), label_.caption(), text, format);
}

void LabelWindow::paintSection(HDC dc, const RECT& area) {
    drawCaption(dc, colour(), label_.caption(), area, captionFormat | DT_VCENTER);
    const LONG middle = area.bottom / 2;
    const LONG left = measured(font(), wide(label_.caption()), area.right, captionFormat).cx + style().px(8);
    fill(dc, {left, middle, area.right, middle + style().px(1)}, style().palette().rule);
}

void PressableWindow::press() {
    if (!IsWindowEnabled(handle())) return;
    const RECT area = clientArea();
    const POINT middle{area.right / 2, area.bottom / 2};
    pressed(middle);
    released(middle);
    // After a press a button has its hover face. It keeps that only if the pointer is on it.
    owner().followPointer();
}

void PressableWindow::notified(int code) {
    if (code == BN_CLICKED) press();
}

LRESULT PressableWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (mouseMessage(message, wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) return 0;
    switch (message) {
        case WM_KEYDOWN:
        case WM_KEYUP:
            if (wParam != VK_SPACE) break;
            if (message == WM_KEYDOWN && !isHeld(lParam)) press();
            return 0;
        case WM_GETDLGCODE:
            if (!takesFocus()) return DLGC_STATIC;
            return DLGC_BUTTON | (owner().keyboard().isDefault(control()) ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
        case BM_CLICK: press(); return 0;
        case BM_SETSTYLE:  // ignored: the dialog manager would set the platform's own style
        case BM_SETSTATE: return 0;
        case WM_CAPTURECHANGED:  // the press ends without a release
            if (std::exchange(captured_, false)) hovered(false);
            return 0;
        default: break;
    }
    return PaintedWindow::message(message, wParam, lParam);
}

bool PressableWindow::mouseMessage(UINT message, WPARAM wParam, POINT at) {
    constexpr WPARAM anyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            if (takesFocus()) SetFocus(handle());
            SetCapture(handle());
            captured_ = true;  // a press that opens a message box loses it at once
            pressed(at);
            return true;
        case WM_LBUTTONUP:
            if (!std::exchange(captured_, false)) return true;
            ReleaseCapture();
            released(at);
            owner().followPointer();
            return true;
        case WM_MOUSEMOVE: moved(at, (wParam & anyButton) != 0); return false;
        default: return false;
    }
}

PictureWindow::PictureWindow(FormWindow& owner, Picture& picture)
    : PressableWindow(owner, picture, {L"STATIC", WS_GROUP | SS_OWNERDRAW | SS_NOTIFY}), picture_(picture) {}

void PictureWindow::paint(HDC dc, const RECT& area) {
    drawArt(dc, area, picture_.art(), Tile::none, false, style().palette(), owner().surfaceColour(picture_));
}

void PictureWindow::released(POINT at) {
    const RECT area = clientArea();
    if (PtInRect(&area, at) && picture_.onClick) screen().event(picture_.onClick);
}

TaskPictureWindow::TaskPictureWindow(FormWindow& owner, TaskPicture& picture)
    : PressableWindow(owner, picture, {L"BUTTON", buttonStyle}), picture_(picture) {
    setText(wide(picture.caption()));
}

void TaskPictureWindow::paint(HDC dc, const RECT& area) {
    const Tile tile = picture_.pressed() ? Tile::pressed : hover_ ? Tile::hover : Tile::rest;
    drawArt(dc, area, picture_.art(), tile, focused(), style().palette(), owner().surfaceColour(picture_));
}

void TaskPictureWindow::hovered(bool on) {
    if (std::exchange(hover_, on) != on) redraw();
    if (!on && !captured() && picture_.pressed()) screen().event([this] { picture_.setPressed(false); });
}

void TaskPictureWindow::pressed(POINT) {
    screen().event([this] { picture_.mouseDown(); });
}

// A release on the caption counts as one in the middle of the picture.
void TaskPictureWindow::released(POINT at) {
    const double scale = style().scale();
    const RECT area = clientArea();
    if (!PtInRect(&area, at) && owner().underPointer() == this) at = {area.right / 2, area.bottom / 2};
    screen().event([&] { picture_.mouseUp(static_cast<double>(at.x) / scale, static_cast<double>(at.y) / scale); });
}

ImageButtonWindow::ImageButtonWindow(FormWindow& owner, ImageButton& button)
    : PressableWindow(owner, button, {L"BUTTON", buttonStyle}), button_(button) {
    owner.tips().set(handle(), wide(button.tip));
}

void ImageButtonWindow::update() {
    setText(wide(button_.label.caption()));
    PressableWindow::update();
}

bool ImageButtonWindow::isOnLabel(POINT at) const {
    const RECT caption = captionArea();
    return PtInRect(&caption, at) != FALSE;
}

RECT ImageButtonWindow::captionArea() const {
    const RECT area = clientArea();
    const SIZE size = measured(font(), wide(button_.label.caption()), area.right, captionFormat);
    const POINT corner{(area.right - size.cx) / 2, (area.bottom - size.cy) / 2};
    return {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
}

void ImageButtonWindow::paint(HDC dc, const RECT& area) {
    const Palette& palette = style().palette();
    const bool pressed = button_.face() == ImageButton::Face::pressed;
    const bool disabled = button_.face() == ImageButton::Face::disabled;
    drawFace(dc, area, {button_.face(), owner().keyboard().isDefault(button_), focused()}, style(),
             owner().surfaceColour(button_));
    RECT text = captionArea();
    if (pressed) OffsetRect(&text, style().px(1), style().px(1));
    drawCaption(dc, disabled ? palette.greyText : palette.faceText, button_.label.caption(), text, captionFormat);
}

bool ImageButtonWindow::enabled() const {
    return button_.face() != ImageButton::Face::disabled && PressableWindow::enabled();
}

void ImageButtonWindow::pressed(POINT at) {
    onLabel_ = isOnLabel(at);
    screen().event([this] { button_.mouseDown(); });
}

void ImageButtonWindow::hovered(bool on) {
    using Face = ImageButton::Face;
    const bool resting = button_.face() == Face::normal || button_.face() == Face::disabled;
    if (!on && !captured() && !resting) screen().event([this] { button_.reset(); });
}

void ImageButtonWindow::released(POINT) {
    screen().event([this] { button_.mouseUp(); });
}

void ImageButtonWindow::moved(POINT at, bool buttonHeld) {
    const bool label = captured() ? onLabel_ : isOnLabel(at);
    screen().event([&] {
        if (label) {
            button_.moveOverLabel();
        } else {
            button_.moveOverPicture(buttonHeld);
        }
    });
}

}  // namespace vrix
