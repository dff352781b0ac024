#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <utility>

namespace qor {

// A control with its name as object name.
template <typename T, typename... Argumentos>
T* Nuevo(const char* nombre, Argumentos&&... argumentos) {
    auto* const control = new T(std::forward<Argumentos>(argumentos)...);
    control->setObjectName(QString::fromLatin1(nombre));
    return control;
}

// The controls and actions of a window by their object names, as they are when this is made. None of them may go before this does.
class Controles {
public:
    Controles() = default;
    explicit Controles(const QObject& ventana);

    // Null where there is none.
    QObject* Buscar(const QByteArray& nombre) const { return porNombre_.value(nombre); }
    template <typename T>
    T* Buscar(const QByteArray& nombre) const {
        return qobject_cast<T*>(Buscar(nombre));
    }

private:
    QHash<QByteArray, QObject*> porNombre_;
};

}  // namespace qor
