#pragma once

#include "forms/form.h"
#include "forms/label.h"
#include "forms/pictures.h"
#include "forms/timer.h"
#include "shell/toolkit.h"

namespace vrix {

// What is seen at the start, until its timer gives way to the main screen. A click does nothing.
class SplashScreen final : public Form {
public:
    Picture Logo{*this, "Logo", {196, 24, 88, 88}, Art::logo};
    Label ProductLbl{*this, "ProductLbl", {40, 122, 400, 34}, "Administrative Toolkit", Look::product};
    Label VersionLbl{*this, "VersionLbl", {190, 158, 100, 20}, "Version 1.2"};
    Label CopyrightLbl{*this, "CopyrightLbl", {40, 190, 400, 20}, "Copyright \xA9 Vrix. All rights reserved."};
    Label ImportantLbl{*this, "ImportantLbl", {40, 222, 400, 20}, "Important:", Look::section};
    Label AcceptLbl{*this,
                    "AcceptLbl",
                    {40, 246, 400, 36},
                    "By using this program you accept the terms of the licence under which it was supplied."};
    Label ProsecuteLbl{*this,
                       "ProsecuteLbl",
                       {40, 286, 400, 36},
                       "Copying or distributing it without permission may lead to civil and criminal penalties."};
    Label TrademarksLbl{*this, "TrademarksLbl", {40, 326, 400, 20}, "All trademarks are the property of their owners."};
    Timer Timer1;

    explicit SplashScreen(Toolkit& toolkit);
    void mouseMove() override {}
    void closed() override {}

private:
    void load() override;
    void giveWay();
    Toolkit& toolkit_;
};

}  // namespace vrix
