#include "app/pages/input_options.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QRadioButton>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text_boxes.h"

namespace qor {

OpcionesDeEntrada::OpcionesDeEntrada(const EntornoDePagina& entorno)
    : entorno_(entorno), encoding_(EncodingDeAdiciones(entorno.programa.ajustes.preferencias.AdicionesDataset)) {
    auto* const entrada = NuevaEntrada();
    auto* const cliente = NuevoCliente();
    EnDosColumnas({entrada}, {cliente, NuevoServidor()}, this);
}

QWidget* OpcionesDeEntrada::NuevaEntrada() {
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("InputFrame", this);
    const auto archivos = lazos.Par("MultipleFilesOption", "OneFileOption", grupo, &Opciones::MultipleFilesOption);
    auto* const rotulo = Nuevo<QLabel>("IdentificadoresLabel", grupo);
    auto* const identificadores = lazos.Linea("Identificadores", grupo, &Opciones::Identificadores);
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(archivos[0], 0, 0, 1, 2);
    orden->addWidget(archivos[1], 1, 0, 1, 2);
    orden->addWidget(RotuloDe(rotulo, identificadores), 2, 0);
    orden->addWidget(identificadores, 2, 1);
    orden->addWidget(EnVariasLineas(Nuevo<QLabel>("IdentificadoresExplicacion", grupo)), 3, 0, 1, 2);
    orden->setColumnStretch(1, 1);
    return grupo;
}

QWidget* OpcionesDeEntrada::NuevoCliente() {
    auto* const grupo = Nuevo<QGroupBox>("FrameClientSide", this);
    auto* const ws = Nuevo<QRadioButton>("OptionWS_UPLOAD", grupo);
    auto* const gui = Nuevo<QRadioButton>("OptionGUI_UPLOAD", grupo);
    auto* const orden = new QVBoxLayout(grupo);
    orden->addWidget(ws);
    orden->addWidget(gui);
    Preferencias& preferencias = entorno_.programa.ajustes.preferencias;
    connect(ws, &QRadioButton::toggled, this,
            [this, &preferencias](bool puesto) { entorno_.lazos.CambioDeAjuste([&] { preferencias.OptionWS_UPLOAD = puesto; }); });
    entorno_.lazos.AlMostrar([ws, gui, &preferencias] { (preferencias.OptionWS_UPLOAD ? ws : gui)->setChecked(true); });
    return grupo;
}

// The addition of OPEN DATASET: three that are told, and one with a text of its own.
QWidget* OpcionesDeEntrada::NuevoServidor() {
    auto* const grupo = Nuevo<QGroupBox>("FrameServerSide", this);
    auto* const orden = new QGridLayout(grupo);
    auto* const botones = new QButtonGroup(this);
    Lazos& lazos = entorno_.lazos;
    std::string& adicion = entorno_.programa.ajustes.preferencias.AdicionesDataset;
    auto* const propia = lazos.CajaFiltrada("EncodingAdditional", grupo);
    // A logon can choose another addition.
    lazos.AlMostrar([this, propia, &adicion] {
        if (adicion != AdicionesDeEncoding(encoding_, propia->Texto())) encoding_ = EncodingDeAdiciones(adicion);
    });
    const auto elegir = [this, propia, &adicion](OpcionEncoding opcion) {
        encoding_ = opcion;
        adicion = AdicionesDeEncoding(opcion, propia->Texto());
    };
    int fila = 0;
    for (const auto& [nombre, opcion] :
         {std::pair{"OptionEncodingNone", OpcionEncoding::Ninguna}, std::pair{"OptionEncodingDefault", OpcionEncoding::Default},
          std::pair{"OptionEncodingNonUnicode", OpcionEncoding::NonUnicode},
          std::pair{"OptionEncodingAdditional", OpcionEncoding::Additional}}) {
        auto* const boton = Nuevo<QRadioButton>(nombre, grupo);
        botones->addButton(boton);
        orden->addWidget(boton, fila++, 0);
        connect(boton, &QRadioButton::toggled, this, [&lazos, elegir, opcion = opcion](bool puesto) {
            if (puesto) lazos.CambioDeAjuste([&] { elegir(opcion); });
        });
        lazos.AlMostrar([this, boton, opcion = opcion] {
            if (encoding_ == opcion) boton->setChecked(true);
        });
    }
    orden->addWidget(propia, fila - 1, 1);
    orden->setColumnStretch(1, 1);
    if (encoding_ == OpcionEncoding::Additional) propia->PonerTexto(adicion);
    lazos.GuardarAlDejar(propia);
    connect(propia, &QLineEdit::textChanged, this, [&lazos, elegir] { lazos.Cambio([&] { elegir(OpcionEncoding::Additional); }); });
    return grupo;
}

}  // namespace qor
