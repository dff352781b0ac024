#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

#include "app/Principal.h"
#include "base/qt/text.h"
#include "editor/option_rules.h"
#include "sap/import.h"
#include "sap/widths.h"

// The third and the fourth page of the main form: tools around a connection or files, and the documentation of the specification.
namespace qor {

namespace {

// Initials of the modules of a system.
constexpr std::array modulosSAP = {"AA", "AM", "BC", "CO", "CS", "FI", "HR", "IM", "IS",
                                   "LO", "MM", "PM", "PP", "PS", "QM", "SD", "TR", "WM"};

QLabel* NuevoRotuloDe(QLabel* rotulo, QWidget* control) {
    rotulo->setBuddy(control);
    return rotulo;
}

}  // namespace

// ---- Tools ----

QWidget* Principal::CrearConexion(QWidget* padre) {
    auto* const panel = new QWidget(padre);
    auto* const conexion = Nuevo<QGroupBox>("FrameConexion", panel);
    AjustesDelPrograma& ajustes = programa_.ajustes;
    auto* const deConexion = new QGridLayout(conexion);
    deConexion->addWidget(NuevoBoton("ButtonLogon", conexion, [this] { conexion_->Logon(); }), 0, 0);
    deConexion->addWidget(NuevoBoton("ButtonLogoff", conexion, [this] { conexion_->Logoff(); }), 0, 1);
    const auto agregar = [&](const char* nombre, bool AjustesDelPrograma::*ajuste, int fila) {
        deConexion->addWidget(CasillaDeAjuste(
                                  nombre, conexion, [&ajustes, ajuste] { return ajustes.*ajuste; },
                                  [&ajustes, ajuste](bool puesta) { ajustes.*ajuste = puesta; }),
                              fila, 0, 1, 2);
    };
    agregar("CheckLogon", &AjustesDelPrograma::LogonAlInicio, 1);
    agregar("CheckLogonErrors", &AjustesDelPrograma::ChequearErroresLogon, 2);
    agregar("CheckSHDB", &AjustesDelPrograma::ImportarSHDBLogon, 3);

    auto* const enLinea = Nuevo<QGroupBox>("FrameOnline", panel);
    auto* const deLinea = new QVBoxLayout(enLinea);
    struct Orden {
        const char* nombre;
        void (AccionesDeConexion::*accion)();
    };
    for (const auto& orden : {Orden{"ButtonOnlineSHDB", &AccionesDeConexion::ButtonOnlineSHDB},
                              Orden{"ButtonOnlineSM35", &AccionesDeConexion::ButtonOnlineSM35},
                              Orden{"ButtonOnlineAnchos", &AccionesDeConexion::ButtonOnlineAnchos},
                              Orden{"ButtonOnlinePublish", &AccionesDeConexion::ButtonOnlinePublish},
                              Orden{"ButtonOnlinePublishLocal", &AccionesDeConexion::ButtonOnlinePublishLocal}}) {
        deLinea->addWidget(NuevoBoton(orden.nombre, enLinea, [this, accion = orden.accion] { (*conexion_.*accion)(); }));
    }
    auto* const vertical = new QVBoxLayout(panel);
    vertical->setContentsMargins(0, 0, 0, 0);
    vertical->addWidget(conexion);
    vertical->addWidget(enLinea);
    vertical->addStretch();
    return panel;
}

QWidget* Principal::CrearImportaciones(QWidget* padre) {
    auto* const panel = new QWidget(padre);
    auto* const importar = Nuevo<QGroupBox>("FrameImportarTransacciones", panel);
    auto* const archivo = CajaFiltrada("ReporteTrans", importar);
    auto* const examinar = NuevoBoton("ExaminarReporte", importar, [this] {
        if (const auto ruta = vista_->ElegirParaAbrir(editor_.DirectorioDocumentos, "*.*|*")) editor_.ventana.ReporteTrans = *ruta;
    });
    auto* const boton = NuevoBoton("ImportTrans", importar, [this] { ImportarSesion(editor_, editor_.ventana.ReporteTrans); });
    connect(archivo, &QLineEdit::textChanged, this, [this, archivo] {
        if (!sincronizando_) Hacer([&] { editor_.ventana.ReporteTrans = archivo->Texto(); });
    });
    connect(archivo, &QLineEdit::returnPressed, boton, &QPushButton::click);
    sincronias_.emplace_back([this, archivo] { archivo->PonerTexto(editor_.ventana.ReporteTrans); });
    auto* const deImportar = new QGridLayout(importar);
    deImportar->addWidget(archivo, 0, 0);
    deImportar->addWidget(examinar, 0, 1);
    deImportar->addWidget(boton, 1, 1);

    auto* const anchos = Nuevo<QGroupBox>("FrameImportarAncho", panel);
    auto* const deAnchos = new QHBoxLayout(anchos);
    deAnchos->addWidget(NuevoBoton("GenerarInfoCampos", anchos, [this] {
        GenerarInfoCampos(editor_.especificacion, programa_.ajustes.ArchivoAnchos, false, programa_.textos, *vista_);
    }));
    deAnchos->addWidget(Nuevo<QLabel>("then1", anchos));
    deAnchos->addWidget(NuevoBoton("ImportInfo", anchos, [this] { ImportInfo(editor_, programa_.ajustes.ArchivoAnchos); }));
    deAnchos->addStretch();

    auto* const orden = new QVBoxLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(importar);
    orden->addWidget(anchos);
    orden->addWidget(NuevoBoton("RunBDCEditor", panel, [this] { ClicEditorBDC(); }), 0, Qt::AlignLeft);
    orden->addStretch();
    return panel;
}

QWidget* Principal::CrearPaginaDeHerramientas() {
    auto* const pagina = new QWidget;
    auto* const orden = new QHBoxLayout(pagina);
    orden->addWidget(CrearConexion(pagina), 1);
    orden->addWidget(CrearImportaciones(pagina), 1);
    return pagina;
}

// ---- Documentation ----

QWidget* Principal::CrearPaginaDeDocumentacion() {
    auto* const pagina = new QWidget;
    auto* const funcional = Linea("Functional", pagina, &Opciones::Functional);
    auto* const tecnico = Linea("Technical", pagina, &Opciones::Technical);
    auto* const modulo = Combo("ModuleCombo", pagina, &Opciones::ModuleCombo);
    auto* const prioridad = Combo("PrioridadCombo", pagina, &Opciones::PrioridadCombo);
    auto* const estado = Linea("DescripcionStatus", pagina, &Opciones::DescripcionStatus);
    auto* const descripcion = Texto("Description", pagina, &Opciones::Description);
    auto* const notas = Texto("Notes", pagina, &Opciones::Notes);
    sincronias_.emplace_back([modulo] {
        if (modulo->count() > 0) return;
        const QString texto = modulo->currentText();
        for (const char* const sigla : modulosSAP) modulo->addItem(QString::fromLatin1(sigla));
        modulo->setCurrentIndex(-1);
        modulo->setEditText(texto);
    });

    auto* const completado = Nuevo<QSlider>("HScroll1", Qt::Horizontal, pagina);
    completado->setRange(0, 100);
    completado->setPageStep(10);
    auto* const porcentaje = Nuevo<QLabel>("Porcentaje", pagina);
    porcentaje->setMinimumWidth(porcentaje->fontMetrics().horizontalAdvance(QStringLiteral("100%")));
    connect(completado, &QSlider::valueChanged, this, [this](int valor) {
        if (!sincronizando_) Hacer([&] { CambiarOpcion(editor_, &Opciones::HScroll1, valor); });
    });
    sincronias_.emplace_back([this, completado, porcentaje] {
        completado->setValue(editor_.opciones.HScroll1);
        porcentaje->setText(TextoQt(Porcentaje(editor_.opciones)));
    });
    auto* const avance = new QHBoxLayout;
    avance->addWidget(completado, 1);
    avance->addWidget(porcentaje);

    auto* const orden = new QGridLayout(pagina);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("FunctionalLabel", pagina), funcional), 0, 0);
    orden->addWidget(funcional, 0, 1);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("ModuleLabel", pagina), modulo), 0, 2);
    orden->addWidget(modulo, 0, 3);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("TechnicalLabel", pagina), tecnico), 1, 0);
    orden->addWidget(tecnico, 1, 1);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("PrioridadLabel", pagina), prioridad), 1, 2);
    orden->addWidget(prioridad, 1, 3);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("StatusLabel", pagina), estado), 2, 0);
    orden->addWidget(estado, 2, 1);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("AvanceLabel", pagina), completado), 2, 2);
    orden->addLayout(avance, 2, 3);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("DescriptionLabel", pagina), descripcion), 3, 0, Qt::AlignTop);
    orden->addWidget(descripcion, 3, 1, 1, 3);
    orden->addWidget(NuevoRotuloDe(Nuevo<QLabel>("NotesLabel", pagina), notas), 4, 0, Qt::AlignTop);
    orden->addWidget(notas, 4, 1, 1, 3);
    orden->setColumnStretch(1, 3);
    orden->setColumnStretch(3, 2);
    orden->setRowStretch(3, 1);
    orden->setRowStretch(4, 2);
    return pagina;
}

}  // namespace qor
