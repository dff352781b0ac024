#include "app/pages/documentation_page.h"

#include <QComboBox>
#include <QGridLayout>
#include <QSlider>
#include <array>

#include "app/pages/controls.h"
#include "app/pages/layout.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "editor/option_rules.h"

namespace qor {

namespace {

// Initials of the modules of a system.
constexpr std::array modulosSAP = {"AA", "AM", "BC", "CO", "CS", "FI", "HR", "IM", "IS",
                                   "LO", "MM", "PM", "PP", "PS", "QM", "SD", "TR", "WM"};

}  // namespace

PaginaDeDocumentacion::PaginaDeDocumentacion(const EntornoDePagina& entorno) : entorno_(entorno) {
    Lazos& lazos = entorno_.lazos;
    auto* const funcional = lazos.Linea("Functional", this, &Opciones::Functional);
    auto* const tecnico = lazos.Linea("Technical", this, &Opciones::Technical);
    auto* const modulo = lazos.Combo("ModuleCombo", this, &Opciones::ModuleCombo);
    auto* const prioridad = lazos.Combo("PrioridadCombo", this, &Opciones::PrioridadCombo);
    auto* const estado = lazos.Linea("DescripcionStatus", this, &Opciones::DescripcionStatus);
    auto* const descripcion = lazos.Texto("Description", this, &Opciones::Description);
    auto* const notas = lazos.Texto("Notes", this, &Opciones::Notes);
    lazos.SinCambios([modulo] {
        for (const char* const sigla : modulosSAP) modulo->addItem(QString::fromLatin1(sigla));
        modulo->setCurrentIndex(-1);
    });
    QSlider* completado = nullptr;
    QLayout* const avance = NuevoAvance(completado);

    auto* const orden = new QGridLayout(this);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("FunctionalLabel", this), funcional), 0, 0);
    orden->addWidget(funcional, 0, 1);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("ModuleLabel", this), modulo), 0, 2);
    orden->addWidget(modulo, 0, 3);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("TechnicalLabel", this), tecnico), 1, 0);
    orden->addWidget(tecnico, 1, 1);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("PrioridadLabel", this), prioridad), 1, 2);
    orden->addWidget(prioridad, 1, 3);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("StatusLabel", this), estado), 2, 0);
    orden->addWidget(estado, 2, 1);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("AvanceLabel", this), completado), 2, 2);
    orden->addLayout(avance, 2, 3);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("DescriptionLabel", this), descripcion), 3, 0, Qt::AlignTop);
    orden->addWidget(descripcion, 3, 1, 1, 3);
    orden->addWidget(RotuloDe(Nuevo<QLabel>("NotesLabel", this), notas), 4, 0, Qt::AlignTop);
    orden->addWidget(notas, 4, 1, 1, 3);
    orden->setColumnStretch(1, 3);
    orden->setColumnStretch(3, 2);
    orden->setRowStretch(3, 1);
    orden->setRowStretch(4, 2);
}

QLayout* PaginaDeDocumentacion::NuevoAvance(QSlider*& completado) {
    Ventana& ventana = entorno_.ventana;
    auto* const barra = Nuevo<QSlider>("HScroll1", Qt::Horizontal, this);
    completado = barra;
    barra->setRange(0, 100);
    barra->setPageStep(10);
    auto* const porcentaje = Nuevo<QLabel>("Porcentaje", this);
    porcentaje->setMinimumWidth(porcentaje->fontMetrics().horizontalAdvance(QStringLiteral("100%")));
    connect(barra, &QSlider::valueChanged, this,
            [this, &ventana](int valor) { entorno_.lazos.Cambio([&] { CambiarOpcion(ventana, &Opciones::HScroll1, valor); }); });
    entorno_.lazos.AlMostrar([&ventana, barra, porcentaje] {
        barra->setValue(ventana.documento.opciones.HScroll1);
        porcentaje->setText(TextoQt(Porcentaje(ventana.documento.opciones)));
    });
    auto* const avance = new QHBoxLayout;
    avance->addWidget(barra, 1);
    avance->addWidget(porcentaje);
    return avance;
}

}  // namespace qor
