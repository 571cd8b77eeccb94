#pragma once

#include <QDialog>

class QCheckBox;

namespace tarvo::gui {

// The options the editor offers. No step of the program reads them: the
// packer always runs, sources are kept and variable names stay editable.
struct EditorOptions
{
    bool disableVariableTextEdit = false;
    bool deleteSourceAfterCompiling = false;
    bool compileVnp = true;
};

class OptionsDialog : public QDialog
{
    Q_OBJECT
public:
    explicit OptionsDialog(const EditorOptions& options, QWidget* parent = nullptr);
    EditorOptions options() const;

private:
    QCheckBox* m_disableTextEdit;
    QCheckBox* m_deleteSource;
    QCheckBox* m_compileVnp;
};

} // namespace tarvo::gui
