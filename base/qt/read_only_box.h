#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <string_view>

namespace qor {

// A text that can be read, selected and copied. Keys that would change it are swallowed.
class CajaDeLectura : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit CajaDeLectura(QWidget* padre = nullptr);

    void PonerTexto(std::string_view texto);

    // The size at which all of the text can be seen.
    QSize TamanoEntero() const;

    // Called for each key that is swallowed.
    void AlTeclear(std::function<void()> accion) { alTeclear_ = std::move(accion); }

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    std::function<void()> alTeclear_;
};

}  // namespace qor
