#include "editor/FormNotas.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "base/failure_trap.h"
#include "base/key_filters.h"
#include "base/qt/text.h"
#include "base/qt/text_boxes.h"
#include "base/words.h"

namespace qor {

namespace {

constexpr int paginaDeAyuda = 718;

template <typename Widget>
Widget* ConNombre(Widget* widget, const char* nombre) {
    widget->setObjectName(QString::fromLatin1(nombre));
    return widget;
}

}  // namespace

FormNotas::FormNotas(Ventana& ventana, FilaDeTabla fila, const AbrirAyuda& ayuda, QWidget* padre)
    : Dialogo(ventana.textos, "FormNotas", padre), ventana_(ventana), estado_(AbrirNotas(ventana, fila)) {
    PonerTitulo(estado_.titulo);
    auto* const orden = new QVBoxLayout(this);
    CrearNota();
    orden->addWidget(NotaCampo_, 1);
    CrearStepLoop();
    orden->addWidget(Steploop_);
    orden->addWidget(partes_, 2);
    auto* const Command2 = NuevaAyuda("Command2", Rotulo(132), ayuda, paginaDeAyuda);
    auto* const Command1 = NuevoBoton("Command1", Palabra(palabra::Aceptar));
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    orden->addLayout(FilaDeBotones({Command2, Command1}, 1));
    Escuchar();
    MostrarForma();
    if (estado_.fila.tabla == Tabla::Archivo) {
        PonerTamano(60, 5);
    } else {
        PonerTamano(estado_.EsStepLoop ? 105 : 70, estado_.EsStepLoop ? 34 : 14);
    }
    NotaCampo_->setFocus();
}

void FormNotas::CrearNota() {
    NotaCampo_ = ConNombre(new CajaDeTexto(this), "NotaCampo");
    NotaCampo_->setAccessibleName(windowTitle());
    NotaCampo_->PonerFiltro([this](std::string_view texto) { return FiltrarNota(texto); });
    if (estado_.fila.tabla == Tabla::Archivo) {
        // The note of a file row is a single line.
        const int borde = 2 * (NotaCampo_->frameWidth() + static_cast<int>(NotaCampo_->document()->documentMargin()));
        NotaCampo_->setLineWrapMode(QPlainTextEdit::NoWrap);
        NotaCampo_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        NotaCampo_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        NotaCampo_->setFixedHeight(NotaCampo_->fontMetrics().lineSpacing() + borde + 2);
    }
    NotaCampo_->PonerTexto(estado_.NotaCampo);
}

void FormNotas::CrearStepLoop() {
    Steploop_ = ConNombre(new QCheckBox(Rotulo(estado_.RotuloDeSteploop()), this), "Steploop");
    Steploop_->setChecked(estado_.Steploop == 1);
    partes_ = new QWidget(this);
    auto* const orden = new QHBoxLayout(partes_);
    orden->setContentsMargins(0, 0, 0, 0);
    orden->addLayout(CrearArchivo(), 3);
    orden->addLayout(CrearModos(), 2);
}

QLayout* FormNotas::CrearArchivo() {
    NombreArchivo_ = ConNombre(new CajaDeLinea(this), "NombreArchivo");
    NombreArchivo_->PonerTexto(estado_.NombreArchivo);
    FileLabel_ = NuevoRotulo("FileLabel", Rotulo(94), NombreArchivo_);
    ExaminarStep_ = NuevoBoton("ExaminarStep", Rotulo(80));
    Descripcion_ = ConNombre(new CajaDeLinea(this), "Descripcion");
    Descripcion_->PonerTexto(estado_.Descripcion);
    DescripcionLabel_ = NuevoRotulo("DescripcionLabel", Rotulo(161), Descripcion_);
    ListaCampos_ = ConNombre(new QListWidget(this), "ListaCampos");
    ListaCampos_->setSelectionMode(QAbstractItemView::MultiSelection);
    CamposLabel_ = NuevoRotulo("CamposLabel", Rotulo(95), ListaCampos_);
    CamposLabel_->setWordWrap(true);
    for (const auto& campo : estado_.ListaCampos) {
        auto* const item = new QListWidgetItem(TextoQt(campo.nombre), ListaCampos_);
        item->setSelected(campo.elegido);
    }
    auto* const archivo = new QHBoxLayout;
    archivo->addWidget(NombreArchivo_);
    archivo->addWidget(ExaminarStep_);
    auto* const orden = new QVBoxLayout;
    orden->addWidget(FileLabel_);
    orden->addLayout(archivo);
    orden->addWidget(DescripcionLabel_);
    orden->addWidget(Descripcion_);
    orden->addWidget(CamposLabel_);
    orden->addWidget(ListaCampos_, 1);
    return orden;
}

QLayout* FormNotas::CrearModos() {
    ModoFrame_ = NuevoMarco("ModoFrame", Rotulo(96));
    NuevaOpt_ = ConNombre(new QRadioButton(Rotulo(97), ModoFrame_), "NuevaOpt");
    AvanceOpt_ = ConNombre(new QRadioButton(Rotulo(98), ModoFrame_), "AvanceOpt");
    (estado_.NuevaOpt ? NuevaOpt_ : AvanceOpt_)->setChecked(true);
    Filas_ = ConNombre(new CajaDeLinea(ModoFrame_), "Filas");
    Filas_->PonerFiltro([](std::string_view texto) { return FiltrarTexto("Filas", texto); });
    Filas_->PonerTexto(estado_.Filas);
    Filas_->setMaximumWidth(AnchoDeLetras(8));
    FilasLabel_ = NuevoRotulo("FilasLabel", Rotulo(100), Filas_);
    auto* const filas = new QHBoxLayout;
    filas->addWidget(FilasLabel_);
    filas->addWidget(Filas_);
    filas->addStretch();
    auto* const modo = new QVBoxLayout(ModoFrame_);
    modo->addWidget(NuevaOpt_);
    modo->addWidget(AvanceOpt_);
    modo->addLayout(filas);

    FrameParametros_ = NuevoMarco("FrameParametros", Rotulo(99));
    auto* const DespuesLabel = NuevaExplicacion("DespuesLabel", Rotulo(101));
    Pos1_ = ConNombre(new QRadioButton(Rotulo(102), FrameParametros_), "Pos1");
    Pos2_ = ConNombre(new QRadioButton(Rotulo(103), FrameParametros_), "Pos2");
    (estado_.Pos1 ? Pos1_ : Pos2_)->setChecked(true);
    auto* const posiciones = new QVBoxLayout(FrameParametros_);
    posiciones->addWidget(DespuesLabel);
    posiciones->addWidget(Pos1_);
    posiciones->addWidget(Pos2_);

    auto* const orden = new QVBoxLayout;
    orden->addWidget(ModoFrame_);
    orden->addWidget(FrameParametros_);
    orden->addStretch();
    return orden;
}

void FormNotas::Escuchar() {
    connect(Steploop_, &QCheckBox::toggled, this, [this](bool puesto) {
        estado_.Steploop = puesto ? 1 : 0;
        MostrarForma();
    });
    connect(NuevaOpt_, &QRadioButton::toggled, this, [this](bool puesta) {
        estado_.NuevaOpt = puesta;
        MostrarForma();
    });
    connect(Pos1_, &QRadioButton::toggled, this, [this](bool puesta) { estado_.Pos1 = puesta; });
    connect(Filas_, &QLineEdit::textChanged, this, [this] {
        CambiarFilas(estado_, Filas_->Texto());
        Filas_->PonerTexto(estado_.Filas);
    });
    connect(ExaminarStep_, &QPushButton::clicked, this, [this] {
        ConTrampa(ventana_.vista, [this] {
            estado_.NombreArchivo = NombreArchivo_->Texto();
            ExaminarStep(ventana_, estado_);
            NombreArchivo_->PonerTexto(estado_.NombreArchivo);
        });
    });
}

void FormNotas::MostrarForma() {
    Steploop_->setVisible(estado_.VerSteploop());
    for (QWidget* const control :
         {static_cast<QWidget*>(FileLabel_), static_cast<QWidget*>(NombreArchivo_), static_cast<QWidget*>(ExaminarStep_),
          static_cast<QWidget*>(DescripcionLabel_), static_cast<QWidget*>(Descripcion_)}) {
        control->setVisible(estado_.VerArchivo());
    }
    partes_->setVisible(estado_.VerLista());
    CamposLabel_->setVisible(estado_.VerLista());
    ListaCampos_->setVisible(estado_.VerLista());
    ModoFrame_->setVisible(estado_.VerParametros());
    FrameParametros_->setVisible(estado_.VerParametros());
    FilasLabel_->setVisible(estado_.VerFilas());
    Filas_->setVisible(estado_.VerFilas());
}

std::string FormNotas::FiltrarNota(std::string_view texto) {
    std::string pasado;
    bool enterDescartado = false;
    for (const char c : texto) {
        // The note of a file row tells once that it takes no line break, however many a paste holds.
        if ((c == '\r' || c == '\n') && enterDescartado) continue;
        if (c == '\n') {
            pasado += c;
            continue;
        }
        const char tecla = FiltrarTeclaDeNota(ventana_, estado_, c);
        if (tecla != teclaDescartada) pasado += tecla;
        if (c == '\r') enterDescartado = tecla == teclaDescartada;
    }
    return pasado;
}

void FormNotas::LeerLista() {
    for (std::size_t i = 0; i < estado_.ListaCampos.size(); ++i) {
        estado_.ListaCampos[i].elegido = ListaCampos_->item(static_cast<int>(i))->isSelected();
    }
}

bool FormNotas::PuedeCerrar() {
    estado_.NotaCampo = NotaCampo_->Texto();
    estado_.NombreArchivo = NombreArchivo_->Texto();
    estado_.Descripcion = Descripcion_->Texto();
    LeerLista();
    bool cerrar = true;
    ConTrampa(ventana_.vista, [&] { cerrar = CerrarNotas(ventana_, estado_); });
    return cerrar;
}

}  // namespace qor
