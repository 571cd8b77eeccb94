#pragma once

#include "editing/editor_kinds.h"

namespace tarvo::gui {

// The names and captions of one list page's controls, and the little that
// its behaviour differs by.
struct ItemPageForm
{
    KindOf kind;
    const char* editLabel; // the name of an edit in the history
    const char* heading;
    const char* eventName;
    const char* listFrame;
    const char* listHeading; // null: an unnamed bold heading
    const char* listCaption;
    const char* list;
    const char* newCaption;
    const char* newButton;
    const char* editButton;
    const char* deleteButton;
    const char* copyButton;
    const char* upButton; // null: the list has no move buttons
    const char* downButton;
    const char* comment;
    const char* commentUpdate;
    const char* editorFrame;
    const char* kindCombo;
    const char* kindCaption;
    const char* label; // the argument captions, "<label>_<i>"
    const char* box; // the argument boxes
    const char* wideBox; // null: no alternative wide boxes
    int boxWidth;
    int slotColumns; // the eight argument slots in this many columns
    const char* description;
    const char* cancelCaption;
    const char* leaveCaption; // the button that goes on from the page
    const char* addButton;
    const char* updateButton;
    const char* cancelButton;
    const char* leaveButton;
    bool leaveWhileComposing; // the leave button stays on while an item is open
    bool selectLastLine; // after storing or deleting, the last line is selected
};

// The form of the conditions page or of the actions page.
ItemPageForm itemPageForm(KindOf kind);

} // namespace tarvo::gui
