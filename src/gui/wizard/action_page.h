#pragma once

#include "wizard/item_list_page.h"

namespace tarvo::gui {

// Page 3 of the wizard: the actions of the event being edited and the editor
// of one action. Each of the eight argument positions has a short box and an
// alternative wide box for long texts; the kind says which one an argument
// uses. Actions can be moved up and down the list.
class ActionPage : public ItemListPage
{
    Q_OBJECT
public:
    explicit ActionPage(ProjectDocument& document, QWidget* parent = nullptr);

Q_SIGNALS:
    void doneRequested();

private:
    QStringList argumentItems(int kind, int slot) const override;
    void loadItem(int line) override;
    int storeItem(int kind, int position) override;
    void move(int direction);
};

} // namespace tarvo::gui
