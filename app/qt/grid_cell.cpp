#include "app/qt/grid_cell.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QDropEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QToolTip>

#include "base/qt/colours.h"
#include "base/qt/text.h"
#include "editor/cell_rules.h"
#include "editor/row_block.h"

namespace qor {

namespace {

constexpr const char* tipoDeCampo = "application/x-qor-field";
constexpr const char* tipoDeOkCode = "application/x-qor-okcode";

std::optional<Tecla> TeclaConMayus(int tecla) {
    switch (tecla) {
        case Qt::Key_Up: return Tecla::MarcarArriba;
        case Qt::Key_Down: return Tecla::MarcarAbajo;
        case Qt::Key_Return:
        case Qt::Key_Enter: return Tecla::Izquierda;
        case Qt::Key_F5: return Tecla::MayusF5;
        default: return std::nullopt;
    }
}

std::optional<Tecla> TeclaDe(const QKeyEvent& evento) {
    if ((evento.modifiers() & ~Qt::KeypadModifier) == Qt::ShiftModifier) return TeclaConMayus(evento.key());
    if ((evento.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return std::nullopt;
    switch (evento.key()) {
        case Qt::Key_Up: return Tecla::Arriba;
        case Qt::Key_Down: return Tecla::Abajo;
        case Qt::Key_Left: return Tecla::Izquierda;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Right: return Tecla::Derecha;
        case Qt::Key_PageUp: return Tecla::RePag;
        case Qt::Key_PageDown: return Tecla::AvPag;
        case Qt::Key_F5: return Tecla::F5;
        case Qt::Key_F6: return Tecla::F6;
        default: return std::nullopt;
    }
}

// The source bears a bold font as long as it is dragged.
void ArrastrarCon(QWidget* origen, QMimeData* datos) {
    const QFont antes = origen->font();
    QFont negrita = antes;
    negrita.setBold(true);
    origen->setFont(negrita);
    auto* const arrastre = new QDrag(origen);
    arrastre->setMimeData(datos);
    arrastre->exec(Qt::CopyAction);
    origen->setFont(antes);
}

// The ground of marked rows: the palette's, with a breath of its highlight.
QColor ColorDeMarca(const QPalette& paleta) {
    constexpr int partes = 4;
    const QColor base = paleta.color(QPalette::Base);
    const QColor marca = paleta.color(QPalette::Highlight);
    const auto mezcla = [](int a, int b) { return (a * (partes - 1) + b) / partes; };
    return {mezcla(base.red(), marca.red()), mezcla(base.green(), marca.green()), mezcla(base.blue(), marca.blue())};
}

bool SeAlejo(const QPoint& desde, const QPoint& hasta) {
    return (hasta - desde).manhattanLength() >= QApplication::startDragDistance();
}

}  // namespace

QMimeData* DatosDeCampo(int lineaDeText1, const QString& nombre) {
    auto* const datos = new QMimeData;
    datos->setData(QString::fromLatin1(tipoDeCampo), QByteArray::number(lineaDeText1));
    datos->setText(nombre);
    return datos;
}

QMimeData* DatosDeOkCode(RotuloDeOkCode rotulo) {
    auto* const datos = new QMimeData;
    datos->setData(QString::fromLatin1(tipoDeOkCode), QByteArray::number(static_cast<int>(rotulo)));
    return datos;
}

QColor ColorDeTexto(Color color, const QPalette& paleta) {
    if (color == Color::Rojo) return ColorLegible(Tono::Nota);
    if (color == Color::Azul) return ColorLegible(Tono::Cabeza);
    return paleta.color(QPalette::Text);
}

CeldaDeRejilla::CeldaDeRejilla(LugarDeCelda lugar, QWidget* padre) : CajaDeLinea(padre), lugar_(lugar) {
    setObjectName(QString::fromStdString(NombreDeControl(lugar)));
    setFrame(false);
    setTextMargins(2, 1, 2, 1);
    setAcceptDrops(true);
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!sincronizando_) emit Escrita();
    });
}

void CeldaDeRejilla::Sincronizar(const Celda& celda, bool marcada) {
    const QString nuevo = TextoQt(celda.texto);
    if (text() != nuevo) {
        sincronizando_ = true;
        setText(nuevo);
        sincronizando_ = false;
        if (window()->focusWidget() == this) selectAll();
    }
    if (window()->focusWidget() != this && (cursorPosition() != 0 || hasSelectedText())) home(false);
    const QPalette deTodos = QApplication::palette(this);
    const QColor color = ColorDeTexto(celda.color, deTodos);
    QPalette paleta = palette();
    if (color_ == celda.color && marcada_ == marcada && paleta.color(QPalette::Text) == color) return;
    color_ = celda.color;
    marcada_ = marcada;
    paleta.setColor(QPalette::Text, color);
    paleta.setColor(QPalette::Base, marcada ? ColorDeMarca(deTodos) : deTodos.color(QPalette::Base));
    setPalette(paleta);
    QFont letra = font();
    letra.setBold(celda.color == Color::Azul);
    setFont(letra);
}

// Undoing is the form's, and not that of a single text box; so is the key of the conditions.
bool CeldaDeRejilla::event(QEvent* evento) {
    if (evento->type() == QEvent::ShortcutOverride) {
        const auto* const tecla = static_cast<QKeyEvent*>(evento);
        const bool deCondiciones = tecla->modifiers() == Qt::ControlModifier && tecla->key() == Qt::Key_E;
        if (deCondiciones || tecla->matches(QKeySequence::Undo) || tecla->matches(QKeySequence::Redo)) return false;
        if (TeclaDe(*tecla)) {
            evento->accept();
            return true;
        }
    }
    if (evento->type() == QEvent::ToolTip && MostrarEntero(*static_cast<QHelpEvent*>(evento))) return true;
    return CajaDeLinea::event(evento);
}

// A text that doesn't fit is shown as tool tip.
bool CeldaDeRejilla::MostrarEntero(const QHelpEvent& ayuda) {
    constexpr int margenes = 8;
    if (fontMetrics().horizontalAdvance(text()) + margenes <= width()) return false;
    QToolTip::showText(ayuda.globalPos(), QStringLiteral("<qt>") + text().toHtmlEscaped() + QStringLiteral("</qt>"), this);
    return true;
}

void CeldaDeRejilla::Copiar() {
    if (marcada_ || !hasSelectedText()) {
        emit PideCopia();
    } else {
        copy();
    }
}

void CeldaDeRejilla::Pegar(const QString& texto) {
    if (LeerBloque(TextoDelModelo(texto)).empty()) {
        CajaDeLinea::Pegar(texto);
    } else {
        emit PideBloque(texto);
    }
}

void CeldaDeRejilla::contextMenuEvent(QContextMenuEvent* evento) { emit PideMenu(evento->globalPos()); }

void CeldaDeRejilla::keyPressEvent(QKeyEvent* evento) {
    if (const auto tecla = TeclaDe(*evento)) {
        emit Pulsada(*tecla);
    } else if (evento->matches(QKeySequence::Undo)) {
        emit PideDeshacer();
    } else if (evento->matches(QKeySequence::Copy)) {
        Copiar();
    } else if (evento->key() == Qt::Key_Backspace && admiteRetroceso_ && !admiteRetroceso_()) {
        evento->accept();
    } else if (evento->matches(QKeySequence::DeleteEndOfLine)) {
        evento->accept();  // the key of the code, where the cell has none
    } else if (!evento->matches(QKeySequence::Redo)) {
        CajaDeLinea::keyPressEvent(evento);
    }
}

void CeldaDeRejilla::focusInEvent(QFocusEvent* evento) {
    CajaDeLinea::focusInEvent(evento);
    const auto motivo = evento->reason();
    // Back from a menu, a message or another window the cell was never left, and the selection stays.
    if (motivo != Qt::PopupFocusReason && motivo != Qt::ActiveWindowFocusReason && motivo != Qt::MenuBarFocusReason) {
        selectAll();
        seleccionarAlSoltar_ = motivo == Qt::MouseFocusReason;
    }
    const bool porElMenu = motivo == Qt::MouseFocusReason && (QApplication::mouseButtons() & Qt::RightButton);
    porElMenu&& marcada_ ? emit EntradaEnMarcada() : emit Entrada();
}

void CeldaDeRejilla::focusOutEvent(QFocusEvent* evento) {
    // Where the whole text was selected, it stays so for the return from a menu or message.
    CajaDeLinea::focusOutEvent(evento);
    const auto motivo = evento->reason();
    if (motivo == Qt::PopupFocusReason || motivo == Qt::ActiveWindowFocusReason || motivo == Qt::MenuBarFocusReason) return;
    const QWidget* const ahora = QApplication::focusWidget();
    if (ahora == nullptr || qobject_cast<const CeldaDeRejilla*>(ahora) != nullptr) return;
    emit Salida();
}

void CeldaDeRejilla::mousePressEvent(QMouseEvent* evento) {
    agarre_.reset();
    const bool deNombre = lugar_.columna == Columna::CampoDeArchivo && !text().isEmpty() && evento->button() == Qt::LeftButton;
    const bool sobreSeleccion = seleccionarAlSoltar_ || (hasSelectedText() && selectedText() == text());
    if (deNombre && sobreSeleccion) agarre_ = evento->pos();
    CajaDeLinea::mousePressEvent(evento);
}

void CeldaDeRejilla::mouseMoveEvent(QMouseEvent* evento) {
    if (!agarre_ || !(evento->buttons() & Qt::LeftButton)) return CajaDeLinea::mouseMoveEvent(evento);
    if (!SeAlejo(*agarre_, evento->pos())) return;
    agarre_.reset();
    seleccionarAlSoltar_ = false;
    Arrastrar();
}

void CeldaDeRejilla::mouseReleaseEvent(QMouseEvent* evento) {
    CajaDeLinea::mouseReleaseEvent(evento);
    if (seleccionarAlSoltar_ && !hasSelectedText()) selectAll();
    seleccionarAlSoltar_ = false;
    agarre_.reset();
}

void CeldaDeRejilla::mouseDoubleClickEvent(QMouseEvent* evento) {
    if (evento->button() != Qt::LeftButton) return CajaDeLinea::mouseDoubleClickEvent(evento);
    selectAll();
    emit DobleClic();
}

void CeldaDeRejilla::Arrastrar() { ArrastrarCon(this, DatosDeCampo(lugar_.linea, text())); }

bool CeldaDeRejilla::RecibeDeRejilla(const QMimeData* datos) const {
    return lugar_.columna == Columna::Valor &&
           (datos->hasFormat(QString::fromLatin1(tipoDeCampo)) || datos->hasFormat(QString::fromLatin1(tipoDeOkCode)));
}

void CeldaDeRejilla::dragEnterEvent(QDragEnterEvent* evento) {
    const bool deRejilla = evento->mimeData()->hasFormat(QString::fromLatin1(tipoDeCampo)) ||
                           evento->mimeData()->hasFormat(QString::fromLatin1(tipoDeOkCode));
    if (!deRejilla) return CajaDeLinea::dragEnterEvent(evento);
    if (evento->mimeData()->hasFormat(QString::fromLatin1(tipoDeCampo)) && lugar_.columna == Columna::CampoDeArchivo) {
        setFocus(Qt::OtherFocusReason);
    }
    evento->setAccepted(RecibeDeRejilla(evento->mimeData()));
}

void CeldaDeRejilla::dragMoveEvent(QDragMoveEvent* evento) {
    if (!RecibeDeRejilla(evento->mimeData())) return CajaDeLinea::dragMoveEvent(evento);
    evento->acceptProposedAction();
}

void CeldaDeRejilla::dropEvent(QDropEvent* evento) {
    const QMimeData* const datos = evento->mimeData();
    if (!RecibeDeRejilla(datos)) return CajaDeLinea::dropEvent(evento);
    evento->acceptProposedAction();
    if (datos->hasFormat(QString::fromLatin1(tipoDeCampo))) {
        const int linea = datos->data(QString::fromLatin1(tipoDeCampo)).toInt();
        if (linea >= 0 && linea < lineasArchivo) emit SoltadoCampo(linea);
    } else {
        const int rotulo = datos->data(QString::fromLatin1(tipoDeOkCode)).toInt();
        if (rotulo >= 0 && rotulo < 4) emit SoltadoOkCode(static_cast<RotuloDeOkCode>(rotulo));
    }
}

RotuloDeArrastre::RotuloDeArrastre(RotuloDeOkCode rotulo, QWidget* padre) : QLabel(padre), rotulo_(rotulo) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    setMargin(3);
    setAlignment(Qt::AlignCenter);
    setCursor(Qt::OpenHandCursor);
}

void RotuloDeArrastre::mousePressEvent(QMouseEvent* evento) { agarre_ = evento->pos(); }

void RotuloDeArrastre::mouseMoveEvent(QMouseEvent* evento) {
    if (!(evento->buttons() & Qt::LeftButton) || !SeAlejo(agarre_, evento->pos())) return;
    ArrastrarCon(this, DatosDeOkCode(rotulo_));
}

}  // namespace qor
