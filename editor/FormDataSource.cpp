#include "editor/FormDataSource.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

#include "base/failure_trap.h"
#include "base/qt/lists.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/words.h"
#include "editor/FormConsultaOrigen.h"
#include "editor/FormConsultadeEliminar.h"

namespace qor {

namespace {

constexpr int paginaDeAyuda = 708;

}  // namespace

FormDataSource::FormDataSource(Ventana& ventana, const Preferencias& preferencias, DialogoDeOrigen estado, MostrarPreview preview,
                               const AbrirAyuda& ayuda, QWidget* padre)
    : Dialogo(ventana.textos, "FormDataSource", padre),
      ventana_(ventana),
      preferencias_(preferencias),
      estado_(std::move(estado)),
      preview_(std::move(preview)) {
    setWindowTitle(Palabra(palabra::OrigenDeDatos));
    CheckOtroOrigen_ = new QCheckBox(Palabra(palabra::LosDatosProvienenDeMiCodigo), this);
    CheckOtroOrigen_->setObjectName(QStringLiteral("CheckOtroOrigen"));
    CheckOtroOrigen_->setChecked(ventana.documento.especificacion.OrigenUsuario);
    connect(CheckOtroOrigen_, &QCheckBox::toggled, this, [this](bool encendido) {
        CambiarOtroOrigen(ventana_, encendido);
        Habilitar();
    });

    auto* const orden = new QVBoxLayout(this);
    orden->addWidget(CheckOtroOrigen_);
    auto* const partes = new QHBoxLayout;
    orden->addLayout(partes, 1);
    CrearTextos();
    partes->addWidget(findChild<QSplitter*>(), 1);
    partes->addLayout(CrearModelos());
    auto* const Ayuda = NuevaAyuda("Ayuda", Rotulo(132), ayuda, paginaDeAyuda);
    auto* const OKButton = NuevoBoton("OKButton", Palabra(palabra::Aceptar));
    OKButton->setDefault(true);
    connect(OKButton, &QPushButton::clicked, this, &QDialog::accept);
    orden->addLayout(FilaDeBotones({Ayuda, OKButton}, 1));
    Mostrar();
    Habilitar();
    PonerTamano(125, 42);
}

void FormDataSource::IrA(const std::string& texto, int linea) {
    if (auto* const caja = findChild<CajaDeTexto*>(QString::fromStdString(texto))) caja->IrALinea(linea);
}

void FormDataSource::CrearTextos() {
    struct Descripcion {
        const char* nombre;
        int rotulo = 0;
        std::string Especificacion::*texto;
    };
    const std::array<Descripcion, 3> descripciones = {{
        {"Variables", palabra::RotuloDeclaraciones, &Especificacion::OrigenVariables},
        {"Forms", palabra::RotuloRutinas, &Especificacion::OrigenForms},
        {"Source", palabra::RotuloCodigoQueLee, &Especificacion::OrigenSource},
    }};
    auto* const textos = new QSplitter(Qt::Vertical, this);
    textos->setChildrenCollapsible(false);
    for (std::size_t i = 0; i < descripciones.size(); ++i) {
        const auto& [nombre, rotulo, texto] = descripciones[i];
        auto* const marco = new QWidget(textos);
        auto* const caja = new CajaDeTexto(marco);
        caja->setObjectName(QString::fromLatin1(nombre));
        caja->MostrarComoABAP();
        auto* const orden = new QVBoxLayout(marco);
        orden->setContentsMargins(0, 0, 0, 0);
        orden->addWidget(NuevoRotulo((std::string(nombre) + "Label").c_str(), Palabra(rotulo), caja));
        orden->addWidget(caja, 1);
        textos->addWidget(marco);
        cajas_[i] = {texto, caja};
        connect(caja, &QPlainTextEdit::textChanged, this, [this, i] {
            if (!mostrando_) CambiarTextoDeOrigen(ventana_, cajas_[i].texto, cajas_[i].caja->Texto());
        });
    }
}

void FormDataSource::CrearBoton(QLayout* orden, const char* nombre, int rotulo, const std::function<void()>& accion) {
    auto* const boton = NuevoBoton(nombre, Palabra(rotulo));
    orden->addWidget(boton);
    connect(boton, &QPushButton::clicked, this, [this, accion] {
        ConTrampa(ventana_.vista, accion);
        Mostrar();
    });
}

QLayout* FormDataSource::CrearModelos() {
    auto* const Modelos = NuevoMarco("FrameModelos", Palabra(palabra::ModelosDeCodigo));
    ComboItabs_ = new QComboBox(Modelos);
    ComboItabs_->setObjectName(QStringLiteral("ComboItabs"));
    PonerCombo(*ComboItabs_, estado_.estructuras.tablas);
    ComboItabs_->setCurrentText(TextoQt(estado_.ComboItabs));
    connect(ComboItabs_, &QComboBox::currentTextChanged, this,
            [this](const QString& tabla) { estado_.ComboItabs = TextoDelModelo(tabla); });
    auto* const modelos = new QVBoxLayout(Modelos);
    modelos->addWidget(NuevoRotulo("ComboItabsLabel", Palabra(palabra::TablaInterna), ComboItabs_));
    modelos->addWidget(ComboItabs_);
    CrearBoton(modelos, "ModeloArchivo", palabra::BotonLeerUnArchivo, [this] {
        FormConsultaOrigen consulta(Textos(), this);
        consulta.exec();
        ClicModeloArchivo(ventana_, preferencias_, estado_, consulta.Fuente());
    });
    CrearBoton(modelos, "ModeloOpenSQL", palabra::OpenSQL, [this] { ClicModeloOpenSQL(ventana_, preferencias_, estado_); });
    CrearBoton(modelos, "ModeloSQLNativo", palabra::SQLNativo, [this] { ClicModeloSQLNativo(ventana_, preferencias_, estado_); });

    auto* const orden = new QVBoxLayout;
    orden->addWidget(Modelos);
    CrearBoton(orden, "PreviewButton", palabra::BotonVistaPrevia, [this] {
        const std::string texto = TextoDePreview(ventana_, preferencias_);
        if (!texto.empty() && preview_) preview_(texto, this);
    });
    CrearBoton(orden, "Eliminar", palabra::BotonBorrar, [this] { ElegirYEliminar(); });
    orden->addStretch();
    return orden;
}

void FormDataSource::ElegirYEliminar() {
    FormConsultadeEliminar consulta(Textos(), this);
    consulta.exec();
    EliminarDeOrigen(ventana_, consulta.Eleccion());
}

void FormDataSource::Habilitar() {
    for (const char* const nombre : {"Variables", "Forms", "Source", "ComboItabs", "ModeloArchivo", "ModeloSQLNativo",
                                     "ModeloOpenSQL", "PreviewButton", "Eliminar"}) {
        findChild<QWidget*>(QString::fromLatin1(nombre))->setEnabled(HabilitadoEnOrigen(ventana_, nombre));
    }
}

void FormDataSource::Mostrar() {
    const bool antes = std::exchange(mostrando_, true);
    for (const auto& [texto, caja] : cajas_) caja->PonerTexto(ventana_.documento.especificacion.*texto);
    mostrando_ = antes;
}

}  // namespace qor
