#include "print/qt/pdf_device.h"

namespace qor {

HojaPDF::HojaPDF() : hoja_(&contenido_) { contenido_.open(QIODevice::WriteOnly); }

DispositivoPDF::DispositivoPDF(const std::filesystem::path& ruta) : DispositivoQt(hoja_), ruta_(ruta), archivo_(ruta) {}

void DispositivoPDF::Terminar() {
    DispositivoQt::Terminar();
    const QByteArray& bytes = contenido_.data();
    archivo_.Escribir({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    archivo_.PonerEnSuLugar();
}

}  // namespace qor
