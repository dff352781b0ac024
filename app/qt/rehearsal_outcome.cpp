#include "app/qt/rehearsal_outcome.h"

#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTextBlock>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/pages/controls.h"
#include "app/pages/findings_model.h"
#include "app/qt/rehearsal_records.h"
#include "app/qt/theme_icon.h"
#include "base/qt/abap_highlighter.h"
#include "base/qt/fixed_font.h"
#include "base/qt/read_only_box.h"
#include "base/qt/text.h"
#include "base/qt/whole_column.h"
#include "base/qt/words.h"

namespace qor {

namespace {

constexpr int papelDeRegistro = Qt::UserRole;
constexpr int papelDeCelda = Qt::UserRole + 1;
constexpr int papelDeFallo = Qt::UserRole + 2;  // its place among the failures

QString Cifra(std::uint64_t numero) { return QLocale().toString(static_cast<qulonglong>(numero)); }

CajaDeLectura* NuevaCaja(const char* nombre, const QString& accesible, QWidget* padre) {
    auto* const caja = new CajaDeLectura(padre);
    caja->setObjectName(QString::fromLatin1(nombre));
    caja->setAccessibleName(accesible);
    caja->setFont(LetraFija());
    caja->setLineWrapMode(QPlainTextEdit::NoWrap);
    caja->setTabChangesFocus(true);
    return caja;
}

template <class Linea, class EnQt>
QString Juntar(const std::vector<Linea>& lineas, EnQt enQt) {
    QStringList textos;
    for (const auto& linea : lineas) textos << enQt(linea);
    return textos.join(QLatin1Char('\n'));
}

void PonerCelda(QTreeWidgetItem* linea, const Lugar& celda) { linea->setData(0, papelDeCelda, QVariant::fromValue(celda)); }

}  // namespace

PestanasDeResultado::PestanasDeResultado(const TextosIdioma& textos, QWidget* padre)
    : QTabWidget(padre),
      textos_(textos),
      lista_(NuevaCaja("Lista", Palabra(textos, palabra::ListaDelReport), this)),
      fallos_(NuevoArbol("ListaDeFallos", palabra::Fallos)),
      totales_(NuevoArbol("Totales", palabra::Totales)),
      avisos_(NuevaCaja("Avisos", Palabra(textos, palabra::Avisos), this)) {
    setObjectName(QStringLiteral("PestanasDeResultado"));
    setDocumentMode(true);
    avisos_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    fallos_->setHeaderHidden(true);
    MostrarEnteraLaUltimaColumna(*fallos_);
    totales_->setColumnCount(4);
    totales_->setHeaderLabels({Palabra(textos, palabra::Que), Palabra(textos, palabra::TipoNumero),
                               Palabra(textos, palabra::Cierta), Palabra(textos, palabra::Falsa)});
    totales_->header()->setStretchLastSection(false);
    totales_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (const int columna : {1, 2, 3}) totales_->header()->setSectionResizeMode(columna, QHeaderView::ResizeToContents);
    volcado_ = CrearVolcado();
    for (QWidget* const pagina : std::initializer_list<QWidget*>{lista_, fallos_, totales_, avisos_}) addTab(pagina, {});
    connect(fallos_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* linea) {
        const auto registro = linea == nullptr ? 0 : linea->data(0, papelDeRegistro).toULongLong();
        if (registro > 0) emit RegistroElegido(static_cast<std::size_t>(registro));
    });
    for (auto* const arbol : {fallos_, totales_}) {
        connect(arbol, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* linea) { Activar(linea); });
    }
    Titular();
}

QTreeWidget* PestanasDeResultado::NuevoArbol(const char* nombre, int accesible) {
    auto* const arbol = Nuevo<QTreeWidget>(nombre, this);
    arbol->setAccessibleName(Palabra(textos_, accesible));
    arbol->setUniformRowHeights(true);
    arbol->setAlternatingRowColors(true);
    arbol->setAllColumnsShowFocus(true);
    arbol->setExpandsOnDoubleClick(false);
    return arbol;
}

QWidget* PestanasDeResultado::CrearVolcado() {
    auto* const pagina = Nuevo<QWidget>("PaginaDeVolcado", this);
    textoDeVolcado_ = Nuevo<QLabel>("TextoDelVolcado", pagina);
    textoDeVolcado_->setTextFormat(Qt::PlainText);
    textoDeVolcado_->setWordWrap(true);
    textoDeVolcado_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    irACelda_ = new QPushButton(Palabra(textos_, palabra::IrALaCelda), pagina);
    irACelda_->setObjectName(QStringLiteral("IrACelda"));
    irACelda_->setAutoDefault(false);
    connect(irACelda_, &QPushButton::clicked, this, [this] { emit Activada(celdaDelVolcado_); });
    reporte_ = NuevaCaja("ReporteDelVolcado", Palabra(textos_, palabra::Report), pagina);
    new ColoresABAP(reporte_->document());
    auto* const cabeza = new QHBoxLayout;
    cabeza->addWidget(textoDeVolcado_, 1);
    cabeza->addWidget(irACelda_);
    auto* const orden = new QVBoxLayout(pagina);
    orden->setContentsMargins(2, 2, 2, 2);
    orden->addLayout(cabeza);
    orden->addWidget(reporte_, 1);
    pagina->hide();
    return pagina;
}

void PestanasDeResultado::Titular() {
    const auto con = [](const QString& titulo, int cuantos) {
        return cuantos > 0 ? QStringLiteral("%1 (%2)").arg(titulo, Cifra(static_cast<std::uint64_t>(cuantos))) : titulo;
    };
    setTabText(indexOf(lista_), Palabra(textos_, palabra::PestanaLista));
    setTabText(indexOf(fallos_), con(Palabra(textos_, palabra::PestanaFallos), cuantosFallos_));
    setTabText(indexOf(totales_), Palabra(textos_, palabra::PestanaTotales));
    setTabText(indexOf(avisos_), con(Palabra(textos_, palabra::PestanaAvisos), cuantosAvisos_));
}

void PestanasDeResultado::Poner(const ResultadoDeEnsayo* resultado, const std::vector<LineaDeTotal>& totales) {
    if (const int lugar = indexOf(volcado_); lugar >= 0) removeTab(lugar);
    lista_->clear();
    fallos_->clear();
    totales_->clear();
    avisos_->clear();
    reporte_->clear();
    cuantosFallos_ = cuantosAvisos_ = 0;
    if (resultado != nullptr) {
        PonerLista(*resultado);
        PonerFallos(*resultado);
        if (resultado->empezado) PonerTotales(*resultado, totales);
        PonerAvisos(*resultado);
        if (resultado->volcado) {
            PonerVolcado(*resultado);
        } else {
            setCurrentWidget(!resultado->empezado       ? static_cast<QWidget*>(avisos_)
                             : cuantosFallos_ > 0       ? static_cast<QWidget*>(fallos_)
                             : resultado->lista.empty() ? static_cast<QWidget*>(totales_)
                                                        : static_cast<QWidget*>(lista_));
        }
    }
    Titular();
}

void PestanasDeResultado::PonerLista(const ResultadoDeEnsayo& resultado) { lista_->setPlainText(Juntar(resultado.lista, TextoQt)); }

void PestanasDeResultado::PonerFallos(const ResultadoDeEnsayo& resultado) {
    cuantosFallos_ = static_cast<int>(resultado.fallos.size());
    const QIcon icono = IconoDeTema("finding-error");
    QList<QTreeWidgetItem*> lineas;
    lineas.reserve(cuantosFallos_);
    for (const auto& fallo : resultado.fallos) {
        const auto llenar = [&](QTreeWidgetItem* linea, const Frase& frase) {
            const QString texto = FraseQt(textos_, frase);
            linea->setText(0, texto);
            linea->setToolTip(0, ComoConsejo(texto));
            linea->setData(0, papelDeRegistro, static_cast<qulonglong>(fallo.registro));
            linea->setData(0, papelDeFallo, static_cast<qulonglong>(lineas.size()));
            PonerCelda(linea, fallo.celda);
        };
        auto* const linea = new QTreeWidgetItem;
        linea->setIcon(0, icono);
        llenar(linea, fallo.texto);
        for (const auto& explicacion : fallo.explicaciones) llenar(new QTreeWidgetItem(linea), explicacion);
        lineas << linea;
    }
    const QSignalBlocker callado(fallos_);
    fallos_->addTopLevelItems(lineas);
    constexpr int maximoAbierto = 200;
    if (lineas.size() <= maximoAbierto) fallos_->expandAll();
    if (!lineas.isEmpty()) fallos_->setCurrentItem(lineas.first());
}

void PestanasDeResultado::PonerTotales(const ResultadoDeEnsayo& resultado, const std::vector<LineaDeTotal>& totales) {
    QTreeWidgetItem* grupo = nullptr;
    const auto titular = [&](int titulo) {
        grupo = new QTreeWidgetItem(totales_, {Palabra(textos_, titulo)});
        QFont letra = grupo->font(0);
        letra.setBold(true);
        grupo->setFont(0, letra);
    };
    const auto agregar = [&](const QStringList& textos) {
        auto* const linea = new QTreeWidgetItem(grupo, textos);
        for (const int columna : {1, 2, 3}) linea->setTextAlignment(columna, Qt::AlignRight | Qt::AlignVCenter);
        return linea;
    };
    const auto& cuenta = resultado.cuenta;
    titular(palabra::Registros);
    agregar({Palabra(textos_, palabra::Leidos), Cifra(cuenta.registros)});
    for (const auto estado : {EstadoDeRegistro::Contabilizado, EstadoDeRegistro::EnSesion, EstadoDeRegistro::Fallado}) {
        const auto cuantos = std::count(resultado.registros.begin(), resultado.registros.end(), estado);
        const bool siempre = estado == EstadoDeRegistro::Fallado;
        if (cuantos > 0 || siempre) agregar({PalabraDe(textos_, estado), Cifra(static_cast<std::uint64_t>(cuantos))});
    }
    for (const auto& [que, cuantos] :
         {std::pair{palabra::TransaccionesLlamadas, cuenta.transacciones},
          std::pair{palabra::TransaccionesEnJuegosDeDatos, cuenta.insertadas}, std::pair{palabra::JuegosDeDatos, cuenta.sesiones},
          std::pair{palabra::LlamadasABAPIs, cuenta.bapis}}) {
        if (cuantos > 0) agregar({Palabra(textos_, que), Cifra(cuantos)});
    }
    using Titulo = LineaDeTotal::Titulo;
    auto presente = Titulo::Registros;
    for (const auto& total : totales) {
        if (total.titulo != presente) {
            presente = total.titulo;
            titular(presente == Titulo::Condiciones ? palabra::CondicionesPreguntadas
                    : presente == Titulo::Pares     ? palabra::ParesDeValoresUsados
                                                    : palabra::LineasSinRegistro);
        }
        QStringList textos{FraseQt(textos_, total.nombre)};
        if (presente != Titulo::Huerfanos) textos << Cifra(total.veces);
        if (presente == Titulo::Condiciones) textos << Cifra(total.ciertas) << Cifra(total.veces - total.ciertas);
        PonerCelda(agregar(textos), total.celda);
    }
    totales_->expandAll();
    totales_->setCurrentItem(totales_->topLevelItem(0));
}

void PestanasDeResultado::PonerAvisos(const ResultadoDeEnsayo& resultado) {
    auto lineas = resultado.porQueNo;
    lineas.insert(lineas.end(), resultado.avisos.begin(), resultado.avisos.end());
    lineas.insert(lineas.end(), resultado.huerfanos.begin(), resultado.huerfanos.end());
    cuantosAvisos_ = static_cast<int>(lineas.size());
    QString texto = Juntar(lineas, [this](const Frase& frase) { return FraseQt(textos_, frase); });
    const auto agregar = [&](int frase, std::size_t cuantos) {
        if (!texto.isEmpty()) texto += QLatin1Char('\n');
        texto += Palabra(textos_, frase).arg(Cifra(cuantos));
        ++cuantosAvisos_;
    };
    if (resultado.hayMasFallos) agregar(palabra::SeMuestranLosPrimerosFallos, maximoDeFallos);
    if (resultado.hayMasLista) agregar(palabra::SeMuestranLasPrimerasLineas, maximoDeLista);
    avisos_->setPlainText(texto);
}

void PestanasDeResultado::PonerVolcado(const ResultadoDeEnsayo& resultado) {
    const auto& volcado = *resultado.volcado;
    celdaDelVolcado_ = volcado.celda;
    const bool hayCelda = volcado.celda.parte != Lugar::Parte::Ninguna;
    QStringList partes;
    if (volcado.registro > 0) partes << Palabra(textos_, palabra::RegistroNumero).arg(volcado.registro);
    partes << Palabra(textos_, palabra::LineaNumero).arg(volcado.linea);
    if (hayCelda) partes << LugarEnPalabras(textos_, volcado.celda);
    textoDeVolcado_->setText(partes.join(QStringLiteral(", ")) + QStringLiteral(": ") + TextoQt(volcado.nombre) + QLatin1Char(' ') +
                             TextoQt(volcado.texto));
    irACelda_->setVisible(hayCelda);
    reporte_->setPlainText(LineasQt(resultado.reporte));
    insertTab(0, volcado_, Palabra(textos_, palabra::PestanaVolcado));
    setCurrentIndex(0);
    const QTextBlock bloque = reporte_->document()->findBlockByNumber(volcado.linea - 1);
    if (!bloque.isValid()) return;
    QTextCursor cursor(bloque);
    QTextEdit::ExtraSelection marca;
    marca.cursor = cursor;
    marca.format.setBackground(palette().brush(QPalette::Highlight));
    marca.format.setForeground(palette().brush(QPalette::HighlightedText));
    marca.format.setProperty(QTextFormat::FullWidthSelection, true);
    reporte_->setExtraSelections({marca});
    reporte_->setTextCursor(cursor);
    reporte_->centerCursor();
}

std::optional<std::size_t> PestanasDeResultado::FalloConFoco() const {
    const auto* const linea = fallos_->hasFocus() ? fallos_->currentItem() : nullptr;
    if (linea == nullptr) return std::nullopt;
    return static_cast<std::size_t>(linea->data(0, papelDeFallo).toULongLong());
}

void PestanasDeResultado::Activar(const QTreeWidgetItem* linea) {
    if (linea->treeWidget() == fallos_)
        return emit FalloActivado(static_cast<std::size_t>(linea->data(0, papelDeFallo).toULongLong()));
    const auto celda = linea->data(0, papelDeCelda).value<Lugar>();
    if (celda.parte != Lugar::Parte::Ninguna) emit Activada(celda);
}

}  // namespace qor
