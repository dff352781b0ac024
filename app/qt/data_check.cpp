#include "app/qt/data_check.h"

#include "app/qt/theme_icon.h"
#include "base/message_text.h"
#include "base/qt/words.h"

namespace qor {

RevisionDeDatos::RevisionDeDatos(const TextosIdioma& textos, QWidget* padre)
    : QObject(padre), textos_(textos), panel_(new PanelDeHallazgosDeDatos(textos, hallazgos_, padre)) {
    panel_->Modelo()->PonerIconos(IconoDeTema("finding-error"), IconoDeTema("finding-warning"));
    connect(panel_, &PanelDeHallazgosDeDatos::AltoPedido, this, [this] {
        if (revision_) revision_->Detener();
    });
}

RevisionDeDatos::~RevisionDeDatos() = default;

void RevisionDeDatos::Empezar(RevisionEnFondo::Pedido pedido) {
    Quitar();
    revision_ = std::make_unique<RevisionEnFondo>(std::move(pedido));
    Mirar();
}

void RevisionDeDatos::Quitar() {
    revision_.reset();
    hallazgos_.Quitar();
    estado_ = {};
    panel_->Mostrar(estado_, false);
    emit HallazgosCambiados();
}

void RevisionDeDatos::Mirar() {
    if (!revision_) return;
    const bool corriendo = revision_->Corriendo();
    const auto antes = hallazgos_.Lista().size();
    const bool seguidos = revision_->Tomar(hallazgos_);
    estado_ = {true, corriendo, revision_->Completa(), revision_->PorMil(), {}};
    if (!corriendo) {
        if (const auto fallo = revision_->Fallo(); fallo) {
            estado_.fallo = Palabra(textos_, palabra::NoSePuedenRevisarLosArchivos) + QLatin1Char(' ') +
                            QString::fromStdString(EnPantalla(*fallo, textos_));
        }
        revision_.reset();
    }
    panel_->Mostrar(estado_, seguidos);
    if (hallazgos_.Lista().size() != antes) emit HallazgosCambiados();
}

int RevisionDeDatos::Vecino(int archivo, std::uint64_t linea, int paso) const {
    const auto& lista = hallazgos_.Lista();
    if (lista.empty()) return -1;
    const auto cuantos = static_cast<int>(lista.size());
    if (const int elegido = panel_->Elegido(); elegido >= 0) {
        const auto& actual = lista.at(static_cast<std::size_t>(elegido));
        const bool aqui = actual.archivo == archivo && (actual.linea == 0 ? 1 : actual.linea) == linea;
        if (aqui) return (elegido + paso + cuantos) % cuantos;
    }
    return hallazgos_.Vecino(archivo, linea, 0, paso);
}

}  // namespace qor
