#pragma once

#include "wizard/item_list_page.h"

namespace tarvo::gui {

// Page 2 of the wizard: the conditions of the event being edited and the
// editor of one condition, whose kind compares it with a value by an
// operator or lets it be negated.
class ConditionPage : public ItemListPage
{
    Q_OBJECT
public:
    explicit ConditionPage(ProjectDocument& document, QWidget* parent = nullptr);

    bool isAdding() const { return state() == State::Adding; }
    bool isUpdating() const { return state() == State::Editing; }

Q_SIGNALS:
    void nextRequested();

private:
    QStringList argumentItems(int kind, int slot) const override;
    void clearExtras() override;
    void showExtras(const CatalogueEntry& entry) override;
    void loadItem(int line) override;
    int storeItem(int kind, int position) override;
    void markValue();

    QComboBox* m_operator;
    QComboBox* m_negation;
    QComboBox* m_value;
};

} // namespace tarvo::gui
