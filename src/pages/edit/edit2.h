#pragma once

#include "shell/page.h"

namespace vrix {

// The hub: opens each group of settings of the selected Product in edit mode. It edits and saves nothing itself.
class Edit2 final : public Page {
public:
    ImageButton ProductSettingsBtn{Frame2, "ProductSettingsBtn", {0, 0, 188, 32}, "Product Settings", 'P'};
    ImageButton CoverPagesBtn{Frame2, "CoverPagesBtn", {0, 44, 188, 32}, "Cover Pages", 'C'};
    ImageButton ContentSummaryBtn{Frame2, "ContentSummaryBtn", {0, 88, 188, 32}, "Content Summary", 'S'};
    ImageButton TableOfContentsBtn{Frame2, "TableOfContentsBtn", {0, 132, 188, 32}, "Table of Contents", 'T'};
    ImageButton ConclusionBtn{Frame2, "ConclusionBtn", {202, 0, 188, 32}, "Conclusion", 'L'};
    ImageButton TopicsBtn{Frame2, "TopicsBtn", {202, 44, 188, 32}, "Topics", 'O'};
    ImageButton TopicOrderBtn{Frame2, "TopicOrderBtn", {202, 88, 188, 32}, "Topic Order", 'R'};
    ImageButton DependenciesBtn{Frame2, "DependenciesBtn", {202, 132, 188, 32}, "Dependencies", 'D'};
    ImageButton UserDefinedFieldsBtn{Frame2, "UserDefinedFieldsBtn", {404, 0, 188, 32}, "User Defined Fields", 'U'};
    ImageButton SmartFieldsBtn{Frame2, "SmartFieldsBtn", {404, 44, 188, 32}, "SmartFields", 'F'};
    ImageButton MiscellaneousSettingsBtn{
        Frame2, "MiscellaneousSettingsBtn", {404, 88, 188, 32}, "Document Control", 'M'};
    ImageButton ExportSettingsBtn{Frame2, "ExportSettingsBtn", {404, 132, 188, 32}, "Export Settings", 'E'};

    explicit Edit2(Toolkit& owner);

private:
    // Opens the first page of a group: edit mode on, the hub left, the page shown, its start routine called.
    void open(Page& page);
    void openDependencies();
    void openProductSettings();
};

}  // namespace vrix
