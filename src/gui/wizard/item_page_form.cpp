#include "wizard/item_page_form.h"

namespace tarvo::gui {

// The two pages side by side: the condition's name or caption first.
ItemPageForm itemPageForm(KindOf kind)
{
    const bool c = kind == KindOf::Condition;
    ItemPageForm form {};
    form.kind = kind;
    form.editLabel = c ? "Edit Conditions" : "Edit Actions";
    form.heading = c ? "Label1" : "ActionEventHeading";
    form.eventName = c ? "ConditionEventName" : "ActionEventName";
    form.listFrame = c ? "Frame2" : "Frame9";
    form.listHeading = c ? "Label3" : nullptr;
    form.listCaption = c ? "Conditions:" : "Actions:";
    form.list = c ? "List2" : "List4";
    form.newCaption = c ? "N&ew..." : "Ne&w...";
    form.newButton = c ? "Command4" : "Command16";
    form.editButton = c ? "Command8" : "Command18";
    form.deleteButton = c ? "Command6" : "Command17";
    form.copyButton = c ? "Command31" : "Command30";
    form.upButton = c ? nullptr : "Command28";
    form.downButton = c ? nullptr : "Command29";
    form.comment = c ? "Text2" : "Text3";
    form.commentUpdate = c ? "Command12" : "Command13";
    form.editorFrame = c ? "Frame1" : "Frame10";
    form.kindCombo = c ? "Combo1" : "Combo2";
    form.kindCaption = c ? "Condition:" : "Action:";
    form.label = c ? "Label4" : "Label13";
    form.box = c ? "Combo3" : "Combo6";
    form.wideBox = c ? nullptr : "Combo10";
    form.boxWidth = c ? 200 : 220;
    // Two columns of four slots keep the condition editor short.
    form.slotColumns = c ? 2 : 1;
    form.description = c ? "Text1" : "Text6";
    form.cancelCaption = c ? "&Cancel" : "Ca&ncel";
    form.leaveCaption = c ? "Ne&xt >>" : "&Done!";
    form.addButton = c ? "Command7" : "Command20";
    form.updateButton = c ? "Command14" : "Command22";
    form.cancelButton = c ? "Command24" : "Command23";
    form.leaveButton = c ? "Command9" : "Command21";
    // Next leaves an open condition unstored; Done waits until it is closed.
    form.leaveWhileComposing = c;
    form.selectLastLine = !c;
    return form;
}

} // namespace tarvo::gui
