#include "pages/edit/edit2.h"

#include "pages/edit/edit1.h"
#include "pages/finish/create18.h"
#include "pages/smartfields/create19.h"
#include "pages/topics/create20.h"
#include "pages/topics/create8.h"
#include "pages/topics/create9.h"
#include "pages/wizard/create17.h"
#include "pages/wizard/create2.h"
#include "pages/wizard/create3.h"
#include "pages/wizard/fields_page.h"
#include "pages/wizard/optional_section.h"
#include "store/cregistry_functions.h"
#include "store/selected_product.h"

namespace vrix {

Edit2::Edit2(Toolkit& owner) : Page(owner, "Edit2", "Product Name", editTask) {
    NextBtnLbl.setCaption("Finish");
    NextBtn.action = [this] { goToMain(); };
    BackBtn.action = [this] { goTo(toolkit.edit1); };
    ProductSettingsBtn.action = [this] { openProductSettings(); };
    CoverPagesBtn.action = [this] { open(toolkit.create3); };
    ContentSummaryBtn.action = [this] { open(toolkit.create5); };
    TableOfContentsBtn.action = [this] { open(toolkit.create6); };
    ConclusionBtn.action = [this] { open(toolkit.create7); };
    TopicsBtn.action = [this] { open(toolkit.create8); };
    TopicOrderBtn.action = [this] { open(toolkit.create20); };
    DependenciesBtn.action = [this] { openDependencies(); };
    UserDefinedFieldsBtn.action = [this] { open(toolkit.create10); };
    SmartFieldsBtn.action = [this] { open(toolkit.create19); };
    MiscellaneousSettingsBtn.action = [this] { open(toolkit.create17); };
    ExportSettingsBtn.action = [this] { open(toolkit.create18); };
    // The hub opens at the button that was used last, for the next Product too.
    for (ImageButton* button : only<ImageButton>(Frame2.children())) {
        button->action = [this, button, open = button->action] {
            firstFocus = button;
            open();
        };
    }
}

void Edit2::open(Page& page) {
    page.Edit = true;
    goForward(page);
}

void Edit2::openDependencies() {
    Create9& page = toolkit.create9;
    page.Edit = true;
    setEnabled(false);
    hide();
    page.show();
    page.initThis();
    page.setEnabled(true);
}

void Edit2::openProductSettings() {
    Create2& page = toolkit.create2;
    const std::string name = toolkit.edit1.ProductList.text();
    page.Edit = true;
    goTo(page);
    page.NextBtnLbl.setCaption("Finish");
    page.ProductKey.setEnabled(false);
    page.ProductKey.setText(toolkit.settings.GetSetting(application, toolkit.selectedProduct.listSection(), name, ""));
    page.initThis();
}

}  // namespace vrix
