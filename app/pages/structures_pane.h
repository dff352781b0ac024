#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "app/pages/closable_pane.h"
#include "app/settings.h"
#include "base/messages.h"
#include "model/document.h"

class QTimer;

namespace qor {

class CajaDeLectura;

// The pane of the record structures: the declarations that the report makes of the file's fields, half a second behind an edit.
// While the specification is refused, those that it had last stay.
class PanelDeEstructuras : public PanelQueSeCierra {
    Q_OBJECT
public:
    PanelDeEstructuras(const Documento& documento, const Preferencias& preferencias, const TextosIdioma& textos, QWidget* padre);

    // The pane is wanted. Off, nothing is read.
    void Encender(bool encendido);
    bool Encendido() const { return encendido_; }
    // Told behind everything that may have changed the document.
    void Seguir();
    void RefrescarIdioma();
    bool HayTexto() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // There is a text now, or there is none any more.
    void Cambiado();

private:
    struct Leido {
        std::uint64_t revision = 0;
        std::filesystem::path ruta;
        Preferencias preferencias;
        bool operator==(const Leido&) const = default;
    };

    void Leer();

    const Documento& documento_;
    const Preferencias& preferencias_;
    const TextosIdioma& textos_;
    CajaDeLectura* texto_;
    QTimer* pausa_;
    std::optional<Leido> leido_;
    bool encendido_ = true;
    bool deOtro_ = false;  // the next text is that of another document
};

}  // namespace qor
