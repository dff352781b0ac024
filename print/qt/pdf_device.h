#pragma once

#include <QBuffer>
#include <QPdfWriter>

#include "base/new_file.h"
#include "print/qt/qt_device.h"

namespace qor {

// What a PDF device needs before the device itself is made.
class HojaPDF {
protected:
    HojaPDF();

    QBuffer contenido_;
    QPdfWriter hoja_;
};

// A PDF file, which takes its place when the printing ends. Both the constructor and `Terminar` throw FalloDeArchivo.
class DispositivoPDF : private HojaPDF, public DispositivoQt {
public:
    explicit DispositivoPDF(const std::filesystem::path& ruta);

    void Terminar() override;
    std::filesystem::path Archivo() const override { return ruta_; }

private:
    std::filesystem::path ruta_;
    ArchivoNuevo archivo_;
};

}  // namespace qor
