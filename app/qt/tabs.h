#pragma once

#include <QTabWidget>
#include <functional>

namespace qor {

// Tabs that tell of a change of the page before it happens.
class Pestanas : public QTabWidget {
    Q_OBJECT
public:
    explicit Pestanas(QWidget* padre = nullptr);

    // Asked before a user's click, key or wheel changes the page. False keeps the page.
    void PonerPermiso(std::function<bool()> permiso) { permiso_ = std::move(permiso); }

    // Keys for the pages that are there: Ctrl+1 for the first one. Their tool tips tell them.
    void PonerTeclas();

signals:
    // The strip has changed; the page of before is still there and has the focus. `currentChanged` comes when the new one is shown.
    void Elegida(int pagina);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    bool Admite() const { return !permiso_ || permiso_(); }

    std::function<bool()> permiso_;
};

}  // namespace qor
