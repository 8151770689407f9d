#include "makers/win32/painted_windows.h"

#include <windowsx.h>

#include <utility>

#include "makers/win32/pictures.h"
#include "makers/win32/wide_text.h"

namespace vrix {

namespace {

constexpr DWORD buttonStyle = WS_TABSTOP | WS_GROUP | BS_OWNERDRAW;
constexpr UINT captionFormat = DT_SINGLELINE | DT_NOPREFIX;

void drawLine(HDC dc, const std::string& text, RECT area, UINT format) {
    const std::wstring line = wide(text);
    DrawTextW(dc, line.c_str(), static_cast<int>(line.size()), &area, format);
}

}  // namespace

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
    const bool oneLine = area.bottom < 2 * owner().style().lineHeight(label_.look());
    shown_ = oneLine ? shortenedTo(area.right, label_.caption()) : label_.caption();
    setStyle(SS_NOTIFY, shown_ != label_.caption());  // for the tip; else moves of the mouse go to the page
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
    UINT format = DT_WORDBREAK | DT_NOPREFIX;
    if (label_.form().border() == Form::Border::none) format |= DT_CENTER;
    RECT text = area;
    const LONG height = measured(dc, shown_, area.right, format).cy;
    if (area.bottom < 2 * style.lineHeight(label_.look()) && height < area.bottom)
        text.top = (area.bottom - height) / 2;
    drawLine(dc, shown_, text, format);
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

// Asks for WM_MOUSELEAVE: the pointer may leave to another window, which tells the page nothing.
void PressableWindow::reportLeaving() const {
    TRACKMOUSEEVENT report{sizeof(report), TME_LEAVE, handle(), 0};
    TrackMouseEvent(&report);
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
    drawArt(dc, area, picture_.art(), picture_.pressed() ? Tile::pressed : Tile::rest, focused(),
            owner().style().palette(), owner().surfaceColour(picture_));
}

void TaskPictureWindow::pressed(POINT) {
    event([this] { picture_.mouseDown(); });
}

void TaskPictureWindow::rest() {
    if (!picture_.pressed()) return;
    event([this] { picture_.setPressed(false); });
}

void TaskPictureWindow::released(POINT at) {
    const double scale = owner().style().scale();
    event([&] { picture_.mouseUp(static_cast<double>(at.x) / scale, static_cast<double>(at.y) / scale); });
}

ImageButtonWindow::ImageButtonWindow(FormWindow& owner, ImageButton& button)
    : PressableWindow(owner, button, {"BUTTON", buttonStyle}), button_(button) {}

void ImageButtonWindow::layout() {
    PressableWindow::layout();
    measureCaption();
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
    drawLine(dc, button_.label.caption(), text, captionFormat);
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
