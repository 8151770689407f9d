#include "pages/start/splash_screen.h"

#include "forms/event.h"
#include "pages/start/toolkit_main.h"

namespace vrix {

SplashScreen::SplashScreen(Toolkit& toolkit)
    : Form(toolkit.platform.screen, "SplashScreen", programTitle, {480, 364}, Border::none),
      Timer1(toolkit.platform.screen, 3000),
      toolkit_(toolkit) {
    Timer1.onTimer = [this] { giveWay(); };
}

void SplashScreen::load() {
    Timer1.setEnabled(true);
    for (Control* control : std::initializer_list<Control*>{&Logo, &ProductLbl, &VersionLbl, &CopyrightLbl, &AcceptLbl,
                                                            &ProsecuteLbl, &TrademarksLbl}) {
        control->setLeft(size().width / 2 - control->bounds().width / 2);
    }
    ImportantLbl.setLeft(AcceptLbl.bounds().left);
}

void SplashScreen::giveWay() {
    Timer1.setEnabled(false);
    leaveFor(*this, toolkit_.toolkitMain);
}

}  // namespace vrix
