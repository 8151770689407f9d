#include "makers/win32/painted_windows.h"

#include <windowsx.h>

#include <utility>

#include "makers/win32/pictures.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

constexpr DWORD buttonStyle = WS_TABSTOP | WS_GROUP | BS_OWNERDRAW;
constexpr UINT captionFormat = DT_SINGLELINE | DT_NOPREFIX;
// A text of several lines: one that is too long ends in "...", and a word without end is broken.
constexpr UINT blockFormat = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL | DT_END_ELLIPSIS;

void drawLine(HDC dc, const std::string& text, RECT area, UINT format) {
    const std::wstring line = wide(text);
    DrawTextW(dc, line.c_str(), static_cast<int>(line.size()), &area, format);
}

// The text with "&" in front of the letter of its access key, and every other "&" doubled.
std::string withMark(const std::string& text, char key) {
    const auto exact = text.find(key);
    const auto place = exact != std::string::npos ? exact : text.find(static_cast<char>(key - 'A' + 'a'));
    std::string marked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == place || text[i] == '&') marked += '&';
        marked += text[i];
    }
    return marked;
}

}  // namespace

void PaintedWindow::drawCaption(HDC dc, const std::string& text, const RECT& area, UINT format, char accessKey) const {
    const bool marked = accessKey != '\0' && owner().keyboard().cuesShown();
    if (marked) {
        drawLine(dc, withMark(text, accessKey), area, format & ~static_cast<UINT>(DT_NOPREFIX));
    } else {
        drawLine(dc, text, area, format);
    }
}

void PaintedWindow::reportLeaving() const {
    TRACKMOUSEEVENT report{sizeof(report), TME_LEAVE, handle(), 0};
    TrackMouseEvent(&report);
}

void PaintedWindow::update() {
    ControlWindow::update();
    InvalidateRect(handle(), nullptr, FALSE);
}

LRESULT PaintedWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    RECT area{};
    GetClientRect(handle(), &area);
    switch (message) {
        case WM_NCPAINT: return 0;  // it has no border
        case WM_ERASEBKGND: return 1;
        case WM_PAINT: {
            PAINTSTRUCT job;
            const HDC screen = BeginPaint(handle(), &job);
            if (!IsRectEmpty(&area)) paint(Buffer(screen, area).dc(), area);
            EndPaint(handle(), &job);
            return 0;
        }
        case WM_PRINTCLIENT: paint(reinterpret_cast<HDC>(wParam), area); return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_ENABLE: InvalidateRect(handle(), nullptr, FALSE); break;
        default: break;
    }
    return ControlWindow::message(message, wParam, lParam);
}

LabelWindow::LabelWindow(FormWindow& owner, Label& label)
    : PaintedWindow(owner, label, {"STATIC", WS_GROUP | SS_OWNERDRAW | SS_NOPREFIX}), label_(label) {}

void LabelWindow::layout() {
    PaintedWindow::layout();
    send(WM_SETFONT, reinterpret_cast<WPARAM>(owner().style().font(label_.look())), FALSE);
}

void LabelWindow::update() {
    setText(label_.caption());
    PaintedWindow::update();
    RECT area{};
    GetClientRect(handle(), &area);
    shown_ = label_.caption();
    bool whole = true;
    if (oneLine()) {
        shown_ = shortenedTo(area.right, label_.caption());
        whole = shown_ == label_.caption();
    } else {
        const HDC dc = GetDC(handle());
        {
            const Selected font(dc, owner().style().font(label_.look()));
            whole = measured(dc, label_.caption(), area.right, DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL).cy <=
                    area.bottom;
        }
        ReleaseDC(handle(), dc);
        owner().explain(handle(), whole ? std::string() : label_.caption());
    }
    // For the tip, and to press its picture. Else moves of the mouse go to the page.
    setStyle(SS_NOTIFY, !whole || label_.presses != nullptr);
}

bool LabelWindow::oneLine() const {
    RECT area{};
    GetClientRect(handle(), &area);
    return area.bottom < 2 * owner().style().lineHeight(label_.look());
}

TaskPictureWindow* LabelWindow::picture() const {
    return label_.presses == nullptr ? nullptr : static_cast<TaskPictureWindow*>(owner().find(*label_.presses));
}

// The picture takes what the mouse does on its caption. It captures the mouse with the press.
LRESULT LabelWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    TaskPictureWindow* pressed = picture();
    if (pressed != nullptr && (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK)) {
        return SendMessageW(pressed->handle(), WM_LBUTTONDOWN, wParam, 0);
    }
    if (pressed != nullptr && message == WM_MOUSEMOVE) reportLeaving();
    if (pressed != nullptr && (message == WM_MOUSEMOVE || message == WM_MOUSELEAVE)) pressed->followPointer();
    return PaintedWindow::message(message, wParam, lParam);
}

Colour LabelWindow::colour() const {
    const Palette& palette = owner().style().palette();
    if (!enabled()) return palette.greyText;
    const bool title = label_.look() == Look::heading || label_.look() == Look::product;
    return title ? palette.heading : palette.text;
}

void LabelWindow::paint(HDC dc, const RECT& area) {
    FillRect(dc, &area, GetSysColorBrush(owner().surface(label_)));
    const Style& style = owner().style();
    const Selected selected(dc, style.font(label_.look()));
    SetTextColor(dc, colour());
    if (label_.look() == Look::section) return paintSection(dc, area);
    // Texts of a window without a title bar are centred.
    UINT format = oneLine() ? captionFormat : blockFormat;
    if (label_.form().border() == Form::Border::none) format |= DT_CENTER;
    RECT text = area;
    const LONG height = measured(dc, shown_, area.right, format).cy;
    if (oneLine() && height < area.bottom) text.top = (area.bottom - height) / 2;
    drawCaption(dc, shown_, text, format, label_.presses != nullptr ? label_.presses->accessKey() : '\0');
}

void LabelWindow::paintSection(HDC dc, const RECT& area) {
    drawLine(dc, shown_, area, captionFormat | DT_VCENTER);
    const Style& style = owner().style();
    const LONG middle = area.bottom / 2;
    const RECT rule{measured(dc, shown_, area.right, captionFormat).cx + style.px(8), middle, area.right,
                    middle + style.px(1)};
    SetDCBrushColor(dc, style.palette().rule);
    FillRect(dc, &rule, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

bool PressableWindow::press() {
    if (!IsWindowEnabled(handle())) return true;
    RECT area{};
    GetClientRect(handle(), &area);
    const POINT middle{area.right / 2, area.bottom / 2};
    pressed(middle);
    released(middle);
    return true;
}

void PressableWindow::notified(int code) {
    if (code == BN_CLICKED) press();
}

LRESULT PressableWindow::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (mouseMessage(message, wParam, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)})) return 0;
    if (keyMessage(message, wParam, lParam)) return 0;
    switch (message) {
        case WM_GETDLGCODE:
            if (!takesFocus()) return DLGC_STATIC;
            return DLGC_BUTTON | (owner().keyboard().isDefault(control()) ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
        case BM_CLICK: press(); return 0;
        case BM_SETSTYLE:  // the dialog manager would give it the look of the platform
        case BM_SETSTATE: return 0;
        case WM_CAPTURECHANGED:
            if (std::exchange(captured_, false)) rest();
            return 0;
        case WM_MOUSELEAVE:
            if (!captured_) rest();
            return 0;
        default: return PaintedWindow::message(message, wParam, lParam);
    }
}

bool PressableWindow::mouseMessage(UINT message, WPARAM wParam, POINT at) {
    constexpr WPARAM anyButton = MK_LBUTTON | MK_RBUTTON | MK_MBUTTON | MK_XBUTTON1 | MK_XBUTTON2;
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            if (takesFocus()) SetFocus(handle());
            SetCapture(handle());
            pressed(at);
            captured_ = true;
            return true;
        case WM_LBUTTONUP:
            if (!captured_) return true;
            captured_ = false;
            ReleaseCapture();
            released(at);
            reportLeaving();
            return true;
        case WM_MOUSEMOVE:
            moved(at, (wParam & anyButton) != 0);
            reportLeaving();
            return true;
        default: return false;
    }
}

bool PressableWindow::keyMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if ((message != WM_KEYDOWN && message != WM_KEYUP) || wParam != VK_SPACE) return false;
    if (message == WM_KEYDOWN && !isHeld(lParam)) press();
    return true;
}

PictureWindow::PictureWindow(FormWindow& owner, Picture& picture)
    : PressableWindow(owner, picture, {"STATIC", WS_GROUP | SS_OWNERDRAW | SS_NOTIFY}), picture_(picture) {}

void PictureWindow::paint(HDC dc, const RECT& area) {
    drawArt(dc, area, picture_.art(), Tile::none, false, owner().style().palette(), owner().surfaceColour(picture_));
}

void PictureWindow::released(POINT at) {
    RECT area{};
    GetClientRect(handle(), &area);
    if (PtInRect(&area, at) && picture_.onClick) event(picture_.onClick);
}

TaskPictureWindow::TaskPictureWindow(FormWindow& owner, TaskPicture& picture)
    : PressableWindow(owner, picture, {"BUTTON", buttonStyle}), picture_(picture) {
    setText(picture.caption());
}

void TaskPictureWindow::paint(HDC dc, const RECT& area) {
    const Tile tile = picture_.pressed() ? Tile::pressed : hover_ ? Tile::hover : Tile::rest;
    drawArt(dc, area, picture_.art(), tile, focused(), owner().style().palette(), owner().surfaceColour(picture_));
}

// Whether the pointer is on the picture or on its caption.
bool TaskPictureWindow::pointerOn() const {
    const ControlWindow* under = owner().underPointer();
    if (under == nullptr) return false;
    const auto* label = dynamic_cast<const Label*>(&under->control());
    return under == this || (label != nullptr && label->presses == &picture_);
}

void TaskPictureWindow::followPointer() { setHover(pointerOn()); }

void TaskPictureWindow::setHover(bool hover) {
    if (std::exchange(hover_, hover) != hover) InvalidateRect(handle(), nullptr, FALSE);
}

void TaskPictureWindow::moved(POINT, bool) { followPointer(); }

void TaskPictureWindow::pressed(POINT) {
    event([this] { picture_.mouseDown(); });
}

void TaskPictureWindow::rest() {
    followPointer();
    if (!picture_.pressed()) return;
    event([this] { picture_.setPressed(false); });
}

// A release on the caption counts as one in the middle of the picture.
void TaskPictureWindow::released(POINT at) {
    const double scale = owner().style().scale();
    RECT area{};
    GetClientRect(handle(), &area);
    const ControlWindow* under = owner().underPointer();
    if (under != this && pointerOn()) at = {area.right / 2, area.bottom / 2};
    event([&] { picture_.mouseUp(static_cast<double>(at.x) / scale, static_cast<double>(at.y) / scale); });
}

ImageButtonWindow::ImageButtonWindow(FormWindow& owner, ImageButton& button)
    : PressableWindow(owner, button, {"BUTTON", buttonStyle}), button_(button) {}

void ImageButtonWindow::layout() {
    PressableWindow::layout();
    measureCaption();
    owner().explain(handle(), button_.tip);
}

void ImageButtonWindow::update() {
    if (setText(button_.label.caption())) measureCaption();
    PressableWindow::update();
}

void ImageButtonWindow::measureCaption() {
    RECT area{};
    GetClientRect(handle(), &area);
    const HDC dc = GetDC(handle());
    SIZE size{};
    {
        const Selected font(dc, owner().style().font(Look::body));
        size = measured(dc, button_.label.caption(), area.right, captionFormat);
    }
    ReleaseDC(handle(), dc);
    const POINT corner{(area.right - size.cx) / 2, (area.bottom - size.cy) / 2};
    caption_ = {corner.x, corner.y, corner.x + size.cx, corner.y + size.cy};
}

void ImageButtonWindow::paint(HDC dc, const RECT& area) {
    const Style& style = owner().style();
    const Palette& palette = style.palette();
    const bool pressed = button_.face() == ImageButton::Face::pressed;
    const bool disabled = button_.face() == ImageButton::Face::disabled;
    drawFace(dc, area, {button_.face(), owner().keyboard().isDefault(button_), focused()}, style,
             owner().surfaceColour(button_));
    RECT text = caption_;
    if (pressed) OffsetRect(&text, style.px(1), style.px(1));
    const Selected font(dc, style.font(Look::body));
    SetTextColor(dc, disabled ? palette.greyText : palette.faceText);
    SetBkMode(dc, TRANSPARENT);
    drawCaption(dc, button_.label.caption(), text, captionFormat, button_.accessKey());
}

bool ImageButtonWindow::enabled() const {
    return button_.face() != ImageButton::Face::disabled && PressableWindow::enabled();
}

// A press leaves the button with its hover face. That stays only if the pointer is on the button.
bool ImageButtonWindow::press() {
    PressableWindow::press();
    POINT pointer{};
    GetCursorPos(&pointer);
    if (WindowFromPoint(pointer) != handle()) rest();
    return true;
}

void ImageButtonWindow::pressed(POINT at) {
    onLabel_ = PtInRect(&caption_, at) != FALSE;
    event([this] { button_.mouseDown(); });
}

void ImageButtonWindow::rest() {
    event([this] { button_.reset(); });
}

void ImageButtonWindow::released(POINT) {
    event([this] { button_.mouseUp(); });
}

void ImageButtonWindow::moved(POINT at, bool buttonHeld) {
    const bool label = captured() ? onLabel_ : PtInRect(&caption_, at) != FALSE;
    event([&] {
        if (label) {
            button_.moveOverLabel();
        } else {
            button_.moveOverPicture(buttonHeld);
        }
    });
}

}  // namespace vrix
