#include "shell/options_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace tarvo::gui {

OptionsDialog::OptionsDialog(const EditorOptions& options, QWidget* parent)
    : QDialog(parent)
    , m_disableTextEdit(new QCheckBox(QStringLiteral("Disable text edit of the variables"), this))
    , m_deleteSource(new QCheckBox(QStringLiteral("Delete source after compiling"), this))
    , m_compileVnp(new QCheckBox(QStringLiteral("Compile VNP"), this))
{
    setObjectName(QStringLiteral("Form3"));
    setWindowTitle(QStringLiteral("Options"));
    m_disableTextEdit->setObjectName(QStringLiteral("Check1"));
    m_deleteSource->setObjectName(QStringLiteral("Check2"));
    m_compileVnp->setObjectName(QStringLiteral("Check3"));
    m_disableTextEdit->setChecked(options.disableVariableTextEdit);
    m_deleteSource->setChecked(options.deleteSourceAfterCompiling);
    m_compileVnp->setChecked(options.compileVnp);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_disableTextEdit);
    layout->addWidget(m_deleteSource);
    layout->addWidget(m_compileVnp);
    layout->addStretch();
    layout->addWidget(buttons);
    setMinimumWidth(300);
}

EditorOptions OptionsDialog::options() const
{
    return {m_disableTextEdit->isChecked(), m_deleteSource->isChecked(), m_compileVnp->isChecked()};
}

} // namespace tarvo::gui
