#include "app/pages/naming_options.h"

#include <QCheckBox>
#include <QGridLayout>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text_boxes.h"

namespace qor {

namespace {

struct Prefijo {
    const char* rotulo;
    const char* caja;
    std::string Preferencias::*valor;
};

constexpr Prefijo prefijos[] = {
    {"LabelGSprefix", "GSprefijo", &Preferencias::GSprefijo}, {"LabelGNprefix", "GNprefijo", &Preferencias::GNprefijo},
    {"LabelGTprefix", "GTprefijo", &Preferencias::GTprefijo}, {"LabelLSprefix", "LSprefijo", &Preferencias::LSprefijo},
    {"LabelLNprefix", "LNprefijo", &Preferencias::LNprefijo}, {"LabelLTprefix", "LTprefijo", &Preferencias::LTprefijo},
    {"LabelGCprefix", "GCprefijo", &Preferencias::GCprefijo}, {"LabelPSprefix", "PSprefijo", &Preferencias::PSprefijo},
    {"LabelPNprefix", "PNprefijo", &Preferencias::PNprefijo},
};

}  // namespace

OpcionesDeNombres::OpcionesDeNombres(const EntornoDePagina& entorno) {
    Lazos& lazos = entorno.lazos;
    Preferencias& preferencias = entorno.programa.ajustes.preferencias;
    auto* const grupo = Nuevo<QGroupBox>("FrameNamingConventions", this);
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(
        lazos.CasillaDeAjuste(
            "CheckActivateNamingConventions", grupo, [&preferencias] { return preferencias.CheckActivateNamingConventions == 1; },
            [&preferencias](bool puesta) { preferencias.CheckActivateNamingConventions = puesta ? 1 : 0; }),
        0, 0, 1, 4);
    orden->addWidget(ConSuLugar(Nuevo<QLabel>("LabelNamingConventions", grupo)), 1, 0, 1, 4);
    int fila = 2;
    for (const auto& prefijo : prefijos) {
        auto* const rotulo = ConSuLugar(Nuevo<QLabel>(prefijo.rotulo, grupo));
        auto* const caja = ConSuLugar(lazos.CajaFiltrada(prefijo.caja, grupo));
        orden->addWidget(RotuloDe(rotulo, caja), fila, 0);
        orden->addWidget(caja, fila++, 1);
        connect(caja, &QLineEdit::textChanged, this, [&lazos, caja, &preferencias, valor = prefijo.valor] {
            lazos.Cambio([&] { preferencias.*valor = caja->Texto(); });
        });
        lazos.GuardarAlDejar(caja);
        lazos.AlMostrar([caja, &preferencias, valor = prefijo.valor] { caja->PonerTexto(preferencias.*valor); });
    }
    orden->setColumnMinimumWidth(1, fontMetrics().averageCharWidth() * 16);
    orden->setColumnStretch(3, 1);
    auto* const vertical = new QVBoxLayout(this);
    vertical->addWidget(grupo);
    vertical->addStretch();
}

}  // namespace qor
