#include "app/pages/tools_page.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "app/pages/controls.h"
#include "app/show_changes.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/qt/words.h"
#include "sap/widths.h"

namespace qor {

PaginaDeHerramientas::PaginaDeHerramientas(const EntornoDePagina& entorno, AccionesDeConexion& conexion,
                                           const std::function<void()>& editorDeDatos)
    : entorno_(entorno), conexion_(conexion) {
    auto* const orden = new QHBoxLayout(this);
    orden->addWidget(NuevaColumnaDeConexion(), 1);
    orden->addWidget(NuevaColumnaDeArchivos(editorDeDatos), 1);
}

void PaginaDeHerramientas::MostrarConexion(const EstadoDelMenu& estado) {
    logon_->setEnabled(estado.Logon);
    logoff_->setEnabled(estado.Logoff);
    enLinea_->setEnabled(estado.FrameOnline);
    importacion_->setEnabled(estado.FrameImportarTransacciones);
    anchos_->setEnabled(estado.FrameImportarAncho);
}

QWidget* PaginaDeHerramientas::NuevaColumnaDeConexion() {
    auto* const panel = new QWidget(this);
    auto* const conexion = NuevaConexion(panel);
    enLinea_ = NuevasOrdenesEnLinea(panel);
    auto* const orden = new QVBoxLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(conexion);
    orden->addWidget(enLinea_);
    orden->addStretch();
    return panel;
}

QGroupBox* PaginaDeHerramientas::NuevaConexion(QWidget* padre) {
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("FrameConexion", padre);
    logon_ = lazos.Boton("ButtonLogon", grupo, [this] { conexion_.Logon(); });
    logoff_ = lazos.Boton("ButtonLogoff", grupo, [this] { conexion_.Logoff(); });
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(logon_, 0, 0);
    orden->addWidget(logoff_, 0, 1);
    AjustesDelPrograma& ajustes = entorno_.programa.ajustes;
    const auto agregar = [&](const char* nombre, bool AjustesDelPrograma::*ajuste, int fila) {
        orden->addWidget(lazos.CasillaDeAjuste(
                             nombre, grupo, [&ajustes, ajuste] { return ajustes.*ajuste; },
                             [&ajustes, ajuste](bool puesta) { ajustes.*ajuste = puesta; }),
                         fila, 0, 1, 2);
    };
    agregar("CheckLogon", &AjustesDelPrograma::LogonAlInicio, 1);
    agregar("CheckLogonErrors", &AjustesDelPrograma::ChequearErroresLogon, 2);
    agregar("CheckSHDB", &AjustesDelPrograma::ImportarSHDBLogon, 3);
    return grupo;
}

QGroupBox* PaginaDeHerramientas::NuevasOrdenesEnLinea(QWidget* padre) {
    struct Orden {
        const char* nombre;
        void (AccionesDeConexion::*accion)();
    };
    auto* const grupo = Nuevo<QGroupBox>("FrameOnline", padre);
    auto* const orden = new QVBoxLayout(grupo);
    for (const auto& [nombre, accion] : {Orden{"ButtonOnlineSHDB", &AccionesDeConexion::ButtonOnlineSHDB},
                                         Orden{"ButtonOnlineSM35", &AccionesDeConexion::ButtonOnlineSM35},
                                         Orden{"ButtonOnlineAnchos", &AccionesDeConexion::ButtonOnlineAnchos},
                                         Orden{"ButtonOnlinePublish", &AccionesDeConexion::ButtonOnlinePublish},
                                         Orden{"ButtonOnlinePublishLocal", &AccionesDeConexion::ButtonOnlinePublishLocal}}) {
        orden->addWidget(entorno_.lazos.Boton(nombre, grupo, [this, accion = accion] { (conexion_.*accion)(); }));
    }
    return grupo;
}

QWidget* PaginaDeHerramientas::NuevaColumnaDeArchivos(const std::function<void()>& editorDeDatos) {
    auto* const panel = new QWidget(this);
    importacion_ = NuevaImportacion(panel);
    anchos_ = NuevosAnchos(panel);
    auto* const orden = new QVBoxLayout(panel);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addWidget(importacion_);
    orden->addWidget(anchos_);
    orden->addWidget(entorno_.lazos.Boton("RunBDCEditor", panel, editorDeDatos), 0, Qt::AlignLeft);
    orden->addStretch();
    return panel;
}

QGroupBox* PaginaDeHerramientas::NuevaImportacion(QWidget* padre) {
    Lazos& lazos = entorno_.lazos;
    Ventana& ventana = entorno_.ventana;
    auto* const grupo = Nuevo<QGroupBox>("FrameImportarTransacciones", padre);
    auto* const archivo = lazos.CajaFiltrada("ReporteTrans", grupo);
    auto* const examinar = lazos.Boton("ExaminarReporte", grupo, [this, &ventana] {
        const auto ruta = entorno_.vista.ElegirParaAbrir({ClaseDeArchivo::Grabacion, todosLosArchivos, ventana.ReporteTrans});
        if (ruta) ventana.ReporteTrans = *ruta;
    });
    auto* const importar = lazos.Boton("ImportTrans", grupo, [&ventana] {
        auto importacion = LeerImportacion(ventana.documento.especificacion, ventana.ReporteTrans, ventana.textos, ventana.vista);
        if (importacion)
            TomarImportacion(ventana, std::move(*importacion), TextoDelModelo(Palabra(ventana.textos, palabra::Filas)));
    });
    connect(archivo, &QLineEdit::textChanged, this,
            [&lazos, &ventana, archivo] { lazos.Cambio([&] { ventana.ReporteTrans = RutaDelSistema(archivo->Texto()); }); });
    connect(archivo, &QLineEdit::returnPressed, importar, &QPushButton::click);
    lazos.AlMostrar([&ventana, archivo] { archivo->PonerTexto(TextoDeRuta(ventana.ReporteTrans)); });
    auto* const orden = new QGridLayout(grupo);
    orden->addWidget(archivo, 0, 0);
    orden->addWidget(examinar, 0, 1);
    orden->addWidget(importar, 1, 1);
    return grupo;
}

QGroupBox* PaginaDeHerramientas::NuevosAnchos(QWidget* padre) {
    Lazos& lazos = entorno_.lazos;
    auto* const grupo = Nuevo<QGroupBox>("FrameImportarAncho", padre);
    auto* const orden = new QHBoxLayout(grupo);
    orden->addWidget(lazos.Boton("GenerarInfoCampos", grupo, [this] {
        const Programa& programa = entorno_.programa;
        const auto& archivo = programa.ajustes.ArchivoAnchos;
        // Widths that were filled in there would be lost.
        const auto pregunta = SobreArchivo(MensajeDePalabra(programa.textos, palabra::ElArchivoYaExiste), archivo);
        if (Existe(archivo) && entorno_.vista.Preguntar(pregunta, Botones::AceptarCancelar) != Respuesta::Aceptar) return;
        GenerarInfoCampos(entorno_.ventana.documento, archivo, false, programa.textos, entorno_.vista);
    }));
    orden->addWidget(Nuevo<QLabel>("then1", grupo));
    orden->addWidget(lazos.Boton("ImportInfo", grupo, [this] {
        Ventana& ventana = entorno_.ventana;
        const auto archivo = entorno_.programa.ajustes.ArchivoAnchos;
        if (ImportInfo(ventana.documento, archivo, ventana.textos, ventana.vista)) MostrarAnchos(ventana);
    }));
    orden->addStretch();
    return grupo;
}

}  // namespace qor
