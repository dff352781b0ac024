#pragma once

#include <array>
#include <string>

#include "app/settings.h"
#include "base/qt/dialog.h"
#include "base/view.h"

class QGridLayout;

namespace qor {

class CajaDeLinea;

// The directories and files of the settings: where documents are looked for first, the file of the field widths, the catalogue of
// BAPIs, and the editor that reports are opened with. OK takes them over.
class FormDirectorios : public Dialogo {
    Q_OBJECT
public:
    FormDirectorios(const TextosIdioma& textos, Vista& vista, AjustesDelPrograma& ajustes, QWidget* padre);

protected:
    void accept() override;

private:
    CajaDeLinea* NuevaFila(QGridLayout* orden, int fila, int rotulo, const char* nombre, const std::string& valor,
                           ClaseDeArchivo clase);

    Vista& vista_;
    AjustesDelPrograma& ajustes_;
    CajaDeLinea* documentos_;
    CajaDeLinea* anchos_;
    CajaDeLinea* catalogo_;
    CajaDeLinea* editor_;
};

}  // namespace qor
