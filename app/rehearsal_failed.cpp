#include "app/rehearsal_failed.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_set>

#include "base/failure.h"
#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

// The lines of a file with what ends them: CR LF, LF or CR.
class LineasConFin {
public:
    explicit LineasConFin(const fs::path& ruta) : archivo_(ruta) {}

    bool Siguiente() {
        principio_ = siguiente_;
        for (std::size_t mirado = principio_;;) {
            fin_ = std::min(texto_.find_first_of("\r\n", mirado), texto_.size());
            // Behind a CR that ends what was read there may be a LF.
            const bool seguro = fin_ < texto_.size() && (texto_[fin_] == '\n' || fin_ + 1 < texto_.size());
            if (!seguro) {
                mirado = fin_ - principio_;
                const bool mas = Leer();
                fin_ = mirado;
                if (mas) continue;
            }
            siguiente_ = std::min(fin_ + (EsDoble() ? 2 : 1), texto_.size());
            return principio_ < texto_.size();
        }
    }
    std::string_view Linea() const { return std::string_view(texto_).substr(principio_, fin_ - principio_); }
    std::string_view ConFin() const { return std::string_view(texto_).substr(principio_, siguiente_ - principio_); }

private:
    bool EsDoble() const { return fin_ + 1 < texto_.size() && texto_[fin_] == '\r' && texto_[fin_ + 1] == '\n'; }

    // More of the file behind the line that was begun, which comes to the front.
    bool Leer() {
        constexpr std::size_t trozo = std::size_t{1} << 18;
        texto_.erase(0, principio_);
        principio_ = 0;
        const auto antes = texto_.size();
        texto_.resize(antes + trozo);
        texto_.resize(antes + archivo_.Leer(texto_.data() + antes, trozo));
        return texto_.size() > antes;
    }

    ArchivoAbierto archivo_;
    std::string texto_;
    std::size_t principio_ = 0;
    std::size_t fin_ = 0;
    std::size_t siguiente_ = 0;
};

class EscritorDeFallados {
public:
    EscritorDeFallados(const DisenoDeEntrada& diseno, const RegistrosFallados& fallados)
        : diseno_(diseno), fallados_(fallados), claves_(diseno.Clases().size()) {}

    // The keys of the main records that failed.
    void TomarClaves(const fs::path& entrada) {
        Recorrer(entrada, 0, [&](std::size_t clase, std::size_t numero, std::string_view linea, std::string_view) {
            if (clase != 0 || !fallados_.es(numero)) return;
            for (std::size_t grupo = 1; grupo < claves_.size(); ++grupo) {
                if (auto clave = ClaveDe(grupo, 0, linea); !clave.empty()) claves_[grupo].insert(std::move(clave));
            }
        });
    }

    void Escribir(std::size_t archivo, const fs::path& entrada, const fs::path& salida) {
        ArchivoNuevo nuevo(salida);
        bool enFallado = false;
        Recorrer(entrada, archivo, [&](std::size_t clase, std::size_t numero, std::string_view linea, std::string_view conFin) {
            if (clase == 0) enFallado = fallados_.es(numero);
            if (clase == 0 ? enFallado : EsDeFallado(clase, numero, linea, enFallado)) nuevo.Escribir(conFin);
        });
        nuevo.PonerEnSuLugar();
    }

private:
    // Calls with the kind of each record, its number among those of its kind from 1, its line and that line with its end.
    template <class Hacer>
    void Recorrer(const fs::path& entrada, std::size_t archivo, Hacer hacer) const {
        std::vector<std::size_t> cuentas(diseno_.Clases().size());
        LineasConFin lineas(entrada);
        while (lineas.Siguiente()) {
            const int suya = diseno_.ClaseDeLinea(static_cast<int>(archivo), lineas.Linea());
            if (suya < 0) continue;
            const auto clase = static_cast<std::size_t>(suya);
            hacer(clase, ++cuentas[clase], lineas.Linea(), lineas.ConFin());
        }
    }

    bool EsDeFallado(std::size_t clase, std::size_t numero, std::string_view linea, bool enFallado) const {
        if (clase < fallados_.lineas.size() && fallados_.lineas[clase].contains(static_cast<std::uint32_t>(numero))) return true;
        const auto clave = ClaveDe(clase, clase, linea);
        return clave.empty() ? diseno_.ArchivoUnico() && enFallado : claves_[clase].contains(clave);
    }

    // The values of the keys of a step-loop in a line of a kind; empty where it has no keys. Each has a line end behind it, which
    // no value holds.
    std::string ClaveDe(std::size_t grupo, std::size_t clase, std::string_view linea) const {
        std::string clave;
        const auto& donde = diseno_.Clases()[clase];
        for (const auto& campo : diseno_.Clases()[grupo].campos) {
            if (!campo.clave) continue;
            const int lugar = donde.BuscarFila(campo.fila);
            if (lugar >= 0) clave += ValorEn(linea, donde, static_cast<std::size_t>(lugar));
            clave += '\n';
        }
        return clave;
    }

    std::string_view ValorEn(std::string_view linea, const ClaseDeRegistro& clase, std::size_t lugar) const {
        const auto& campo = clase.campos[lugar];
        if (!diseno_.PorTabuladores())
            return SinBlancosDetras(campo.columna < linea.size() ? linea.substr(campo.columna, campo.ancho) : std::string_view());
        for (; lugar > 0; --lugar) linea = DespuesDe(linea, '\t');
        return SinBlancosDetras(AntesDe(linea, '\t').substr(0, campo.ancho));
    }

    const DisenoDeEntrada& diseno_;
    const RegistrosFallados& fallados_;
    std::vector<std::unordered_set<std::string>> claves_;  // by step-loop, of the records that failed
};

}  // namespace

std::vector<fs::path> EscribirFallados(const DisenoDeEntrada& diseno, const std::vector<fs::path>& entradas,
                                       const RegistrosFallados& fallados, const fs::path& archivo) {
    std::vector<fs::path> salidas;
    for (const auto& entrada : diseno.Archivos()) {
        auto nombre = archivo.stem();
        if (!salidas.empty()) nombre += "-" + entrada.nombre;
        nombre += archivo.extension();
        salidas.push_back(salidas.empty() ? archivo : fs::path(archivo).replace_filename(nombre));
    }
    for (const auto& salida : salidas) {
        for (const auto& entrada : entradas) {
            std::error_code error;
            if (fs::equivalent(salida, entrada, error)) throw FalloDeArchivo("The rehearsal has read this file", salida);
        }
    }
    EscritorDeFallados escritor(diseno, fallados);
    escritor.TomarClaves(entradas.front());
    for (std::size_t i = 0; i < salidas.size(); ++i) escritor.Escribir(i, entradas[i], salidas[i]);
    return salidas;
}

}  // namespace qor
