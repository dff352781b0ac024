#include "print/text_device.h"

#include "base/text.h"

namespace qor {

void DispositivoDeTexto::Item(std::string_view texto) {
    linea_ += ReemplazarTodo(ReemplazarTodo(ReemplazarTodo(texto, "\r\n", " "), "\r", " "), "\n", " ");
}

void DispositivoDeTexto::Tab(int columna) {
    const auto antes = static_cast<std::size_t>(columna) - 1;
    if (linea_.size() < antes) {
        linea_.resize(antes, ' ');
    } else {
        linea_ += ' ';
    }
}

void DispositivoDeTexto::FinDeLinea() {
    linea_.erase(linea_.find_last_not_of(' ') + 1);
    texto_ += linea_ + "\r\n";
    linea_.clear();
}

void DispositivoDeTexto::PonerEnfasis(Enfasis /*enfasis*/, bool /*puesto*/) {}

void DispositivoDeTexto::Terminar() {
    if (!linea_.empty()) FinDeLinea();
}

}  // namespace qor
