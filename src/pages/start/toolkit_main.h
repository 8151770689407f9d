#pragma once

#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/frame.h"
#include "forms/label.h"
#include "forms/pictures.h"
#include "shell/toolkit.h"

namespace vrix {

// The main task screen. The program ends only here.
class ToolkitMain final : public Form {
public:
    Picture Image3{*this, "Image3", {-112, 20, 80, 80}, Art::logo};
    Label Label1{*this, "Label1", {32, 28, -128, 36}, "Administrative Toolkit", Look::product};
    Label Label2{*this, "Label2", {32, 70, -128, 22}, "Please Select A Task:"};
    Frame Frame2{*this, "Frame2", {32, 120, -32, -72}};
    TaskPicture CreateImg{Frame2, "CreateImg", {0, 0, 80, 80}, Art::create, "Create A New Product", 'C'};
    Label Label3{Frame2, "Label3", {100, 28, -32, 24}, "Create A New Product", Look::subheading};
    TaskPicture EditImg{Frame2, "EditImg", {0, 96, 80, 80}, Art::edit, "Edit An Existing Product", 'E'};
    Label Label4{Frame2, "Label4", {100, 124, -32, 24}, "Edit An Existing Product", Look::subheading};
    TaskPicture DeleteImg{Frame2, "DeleteImg", {0, 192, 80, 80}, Art::remove, "Delete An Existing Product", 'D'};
    Label Label5{Frame2, "Label5", {100, 220, -32, 24}, "Delete An Existing Product", Look::subheading};
    Frame Frame3{*this, "Frame3", {0, -60, 0, 0}};
    Picture Image1{Frame3, "Image1", {32, 18, 24, 24}, Art::emblem};
    Picture Image2{Frame3, "Image2", {64, 18, 24, 24}, Art::emblem};
    ImageButton ExitBtn{Frame3, "ExitBtn", {-112, 16, 88, 28}, "Exit", 'X'};
    ButtonLabel& ExitBtnLbl = ExitBtn.label;

    explicit ToolkitMain(Toolkit& toolkit);

    // Clears the input controls of all pages but Create19. Failure 9 halfway if Create9 was never opened in this run.
    void InitEverything();

    void closed() override { screen().quit(); }

private:
    // Runs at every release of the Edit or the Delete picture, inside or outside: while no Product is known, it tells
    // so and comes back from the page.
    void startWithProducts(bool inside, TaskPicture& picture, class Page& page, const std::string& option);
    Toolkit& toolkit_;
};

}  // namespace vrix
