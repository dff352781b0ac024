#include "input/csv_writer.h"

#include "base/code_page.h"

namespace qor {

EscritorCsv::EscritorCsv(const std::filesystem::path& ruta, char separador)
    : archivo_(ruta), separador_(separador), especiales_("\"\r\n") {
    especiales_ += separador;
    archivo_.Escribir("\xEF\xBB\xBF");
}

void EscritorCsv::Fila(const std::vector<std::string>& valores) {
    linea_.clear();
    for (std::size_t i = 0; i < valores.size(); ++i) {
        const auto& valor = valores[i];
        if (i > 0) linea_ += separador_;
        if (valor.find_first_of(especiales_) == std::string::npos) {
            linea_ += valor;
            continue;
        }
        linea_ += '"';
        for (const char c : valor) linea_.append(c == '"' ? 2 : 1, c);
        linea_ += '"';
    }
    linea_ += "\r\n";
    archivo_.Escribir(AUtf8(linea_));
}

}  // namespace qor
