#pragma once

#include "base/qt/dialog.h"

namespace qor {

// The opening box. A click, or Space, Esc or Enter, closes it. Its object name is frmAbout.
class FormAbout : public Dialogo {
    Q_OBJECT
public:
    // `version` is the three numbers joined by ".".
    FormAbout(const TextosIdioma& textos, const QString& version, QWidget* padre);

protected:
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
};

}  // namespace qor
