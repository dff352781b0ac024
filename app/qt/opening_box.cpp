#include "app/qt/opening_box.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QWindow>
#include <utility>

namespace qor {

namespace {

bool SoloCierra(int tecla) {
    return tecla == Qt::Key_Space || tecla == Qt::Key_Escape || tecla == Qt::Key_Return || tecla == Qt::Key_Enter;
}

bool EsModificador(int tecla) { return tecla >= Qt::Key_Shift && tecla <= Qt::Key_ScrollLock; }

// Sees all keys and clicks of the program while the box is there. A key comes first as what may be a shortcut, then as itself.
class GuardianDeApertura : public QObject {
public:
    GuardianDeApertura(QDialog* caja, std::function<void()> despues) : QObject(caja), caja_(caja), despues_(std::move(despues)) {
        connect(caja, &QDialog::finished, this, [this] { Seguir(); });
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* objeto, QEvent* evento) override {
        if (evento->type() == QEvent::WindowBlocked) pregunto_ = true;
        if (evento->type() == QEvent::KeyPress && std::exchange(tragar_, false)) return true;
        if (siguio_) return false;
        switch (evento->type()) {
            case QEvent::ShortcutOverride:
            case QEvent::KeyPress: return Tecla(*static_cast<QKeyEvent*>(evento));
            case QEvent::MouseButtonPress: {
                const bool enLaCaja = objeto == caja_ || objeto == caja_->windowHandle();
                Cerrar();
                return enLaCaja || pregunto_;
            }
            default: return false;
        }
    }

private:
    bool Tecla(QKeyEvent& evento) {
        if (EsModificador(evento.key())) return false;
        if (!SoloCierra(evento.key())) {
            Cerrar();
            // What was a shortcut isn't one any more, and comes again as a key.
            if (pregunto_ && evento.type() == QEvent::ShortcutOverride) tragar_ = true;
            evento.setAccepted(pregunto_);
            return pregunto_;
        }
        if (evento.type() == QEvent::KeyPress) Cerrar();
        evento.accept();
        return true;
    }

    void Cerrar() { caja_->accept(); }

    void Seguir() {
        if (std::exchange(siguio_, true)) return;
        despues_();
        caja_->deleteLater();
    }

    QDialog* caja_;
    std::function<void()> despues_;
    bool siguio_ = false;
    bool pregunto_ = false;
    bool tragar_ = false;
};

}  // namespace

void MostrarAlEmpezar(QDialog* caja, std::function<void()> despues) {
    new GuardianDeApertura(caja, std::move(despues));
    caja->setModal(false);
    caja->setAttribute(Qt::WA_ShowWithoutActivating);
    caja->setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    caja->show();
}

}  // namespace qor
