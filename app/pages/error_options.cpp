#include "app/pages/error_options.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QRadioButton>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text_boxes.h"
#include "editor/option_rules.h"

namespace qor {

OpcionesDeErrores::OpcionesDeErrores(const EntornoDePagina& entorno) : entorno_(entorno) {
    auto* const contabilizacion = NuevaContabilizacion();
    auto* const juego = NuevoJuegoDeDatos();
    auto* const errores = NuevoManejoDeErrores();
    auto* const titulos = NuevosTitulos();
    EnDosColumnas({contabilizacion, juego}, {errores, titulos}, this);
}

QWidget* OpcionesDeErrores::NuevaContabilizacion() {
    Ventana& ventana = entorno_.ventana;
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("FrameContabilizacion", this);
    auto* const modo = ConSuLugar(Nuevo<QGroupBox>("CTFrame", grupo));
    auto* const letras = new QButtonGroup(this);
    auto* const deModo = new QVBoxLayout(modo);
    for (const auto& [nombre, letra] : {std::pair{"AOption", 'A'}, std::pair{"NOption", 'N'}, std::pair{"EOption", 'E'}}) {
        auto* const opcion = Nuevo<QRadioButton>(nombre, modo);
        letras->addButton(opcion);
        deModo->addWidget(opcion);
        connect(opcion, &QRadioButton::toggled, this, [&ventana, &lazos, letra = letra](bool puesta) {
            if (puesta) lazos.Cambio([&] { CambiarOpcion(ventana, &Opciones::Modo, letra); });
        });
        lazos.AlMostrar([&ventana, opcion, letra = letra] {
            if (ventana.documento.opciones.Modo == letra) opcion->setChecked(true);
        });
    }
    deModo->addWidget(lazos.Casilla("ModeAsParameter", modo, &Opciones::ModeAsParameter));

    auto* const orden = new QVBoxLayout(grupo);
    orden->addWidget(lazos.Casilla("CallTransaction", grupo, &Opciones::CallTransaction));
    orden->addWidget(modo);
    orden->addWidget(lazos.Casilla("CommitCheck", grupo, &Opciones::CommitCheck));
    return grupo;
}

QWidget* OpcionesDeErrores::NuevoManejoDeErrores() {
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("FrameErrores", this);
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(lazos.Casilla("SafeCallTransactionCheck", grupo, &Opciones::SafeCallTransactionCheck), 0, 0, 1, 2);
    orden->addWidget(lazos.Casilla("ErrorHandlingCheck", grupo, &Opciones::ErrorHandlingCheck), 1, 0, 1, 2);
    orden->addWidget(ConSuLugar(EnVariasLineas(Nuevo<QLabel>("ErroresExplicacion", grupo))), 2, 0, 1, 2);
    auto* const rotuloTabla = ConSuLugar(Nuevo<QLabel>("TablaZLabel", grupo));
    auto* const rotuloNumero = ConSuLugar(Nuevo<QLabel>("ProgIDLabel", grupo));
    auto* const tabla = ConSuLugar(lazos.Linea("TablaZ", grupo, &Opciones::TablaZ));
    auto* const numero = ConSuLugar(lazos.Linea("ProgID", grupo, &Opciones::ProgID, CambiarProgID));
    orden->addWidget(RotuloDe(rotuloTabla, tabla), 3, 0);
    orden->addWidget(tabla, 3, 1);
    orden->addWidget(RotuloDe(rotuloNumero, numero), 4, 0);
    orden->addWidget(numero, 4, 1);
    orden->setColumnStretch(1, 1);
    return grupo;
}

QWidget* OpcionesDeErrores::NuevosTitulos() {
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("TitulosFrame", this);
    auto* const orden = new QVBoxLayout(grupo);
    orden->addWidget(lazos.Casilla("DiaCheck", grupo, &Opciones::DiaCheck));
    orden->addWidget(lazos.Casilla("QORCheck", grupo, &Opciones::QORCheck));
    orden->addWidget(lazos.Casilla("ArchivosCheck", grupo, &Opciones::ArchivosCheck));
    orden->addWidget(lazos.Casilla("TCodeCheck", grupo, &Opciones::TCodeCheck));
    orden->addWidget(lazos.Casilla("StatusCheck", grupo, &Opciones::StatusCheck));
    return grupo;
}

QWidget* OpcionesDeErrores::NuevoJuegoDeDatos() {
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("BDCFrame", this);
    const auto nombre = lazos.Par("GeneracionAutomatica", "GeneracionManual", grupo, &Opciones::GeneracionAutomatica);
    auto* const manual = lazos.Linea("NombreManual", grupo, &Opciones::NombreManual, CambiarNombreManual);
    auto* const campos = Nuevo<QLabel>("CamposLabel", grupo);
    const auto proceso = lazos.Par("ProcesarTodoOpt", "ProcesarParteOpt", grupo, &Opciones::ProcesarTodoOpt);
    auto* const rotuloBlanco = Nuevo<QLabel>("SpaceCodeLabel", grupo);
    auto* const blanco = lazos.Linea("SpaceCode", grupo, &Opciones::SpaceCode);
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(nombre[0], 0, 0, 1, 2);
    orden->addWidget(nombre[1], 1, 0);
    orden->addWidget(manual, 1, 1);
    orden->setRowMinimumHeight(2, fontMetrics().height() / 2);
    orden->addWidget(campos, 3, 0, 1, 2);
    orden->addWidget(proceso[0], 4, 0, 1, 2);
    orden->addWidget(proceso[1], 5, 0, 1, 2);
    orden->addWidget(RotuloDe(rotuloBlanco, blanco), 6, 0);
    orden->addWidget(blanco, 6, 1);
    orden->addWidget(EnVariasLineas(Nuevo<QLabel>("Atencion", grupo)), 7, 0, 1, 2);
    orden->setColumnStretch(1, 1);
    return grupo;
}

}  // namespace qor
