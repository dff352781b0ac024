#include "app/rehearsal_failed.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>

#include "base/failure.h"
#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"
#include "input/check_line.h"
#include "input/line_copy.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

class EscritorDeFallados {
public:
    EscritorDeFallados(const DisenoDeEntrada& diseno, const RegistrosFallados& fallados)
        : revisor_(diseno, sinReglas_), fallados_(fallados), claves_(diseno.Clases().size()) {}

    // The keys of the main records that failed.
    void TomarClaves(const ArchivoAbierto& entrada) {
        Recorrer(entrada, 0, [&](std::size_t clase, std::size_t numero, const LineaLeida& linea) {
            if (clase != 0 || !fallados_.es(numero)) return;
            for (std::size_t grupo = 1; grupo < claves_.size(); ++grupo) {
                if (auto clave = ClaveDe(grupo, 0, linea.texto); !clave.empty()) claves_[grupo].insert(std::move(clave));
            }
        });
    }

    void Escribir(std::size_t archivo, const ArchivoAbierto& entrada, ArchivoNuevo& salida) {
        bool enFallado = false;
        Recorrer(entrada, archivo, [&](std::size_t clase, std::size_t numero, const LineaLeida& linea) {
            if (clase == 0) enFallado = fallados_.es(numero);
            const bool suya = clase == 0 ? enFallado : EsDeFallado(clase, numero, linea.texto, enFallado);
            if (suya) CopiarLinea(entrada, linea, salida);
        });
    }

private:
    // Calls with the kind of each record, its number among those of its kind from 1, and its line.
    template <class Hacer>
    void Recorrer(const ArchivoAbierto& entrada, std::size_t archivo, Hacer hacer) const {
        std::vector<std::size_t> cuentas(revisor_.Diseno().Clases().size());
        LectorDeEntrada lector(entrada);
        LineaLeida linea;
        while (lector.Linea(linea)) {
            const int clase = revisor_.ClaseDe(static_cast<int>(archivo), linea.texto);
            if (clase < 0) continue;
            const auto lugar = static_cast<std::size_t>(clase);
            hacer(lugar, ++cuentas[lugar], linea);
        }
    }

    bool EsDeFallado(std::size_t clase, std::size_t numero, std::string_view linea, bool enFallado) const {
        if (clase < fallados_.lineas.size() && fallados_.lineas[clase].contains(static_cast<std::uint32_t>(numero))) return true;
        const auto clave = ClaveDe(clase, clase, linea);
        return clave.empty() ? revisor_.Diseno().ArchivoUnico() && enFallado : claves_[clase].contains(clave);
    }

    // The values of the keys of a step-loop in a line of a kind; empty where it has no keys. Each has a line end behind it, which
    // no value holds.
    std::string ClaveDe(std::size_t grupo, std::size_t clase, std::string_view linea) const {
        std::string clave;
        const auto& clases = revisor_.Diseno().Clases();
        for (const auto& campo : clases[grupo].campos) {
            if (!campo.clave) continue;
            const int lugar = clases[clase].BuscarFila(campo.fila);
            if (lugar >= 0) {
                clave += SinBlancosDetras(revisor_.ValorDe(static_cast<int>(clase), linea, static_cast<std::size_t>(lugar)));
            }
            clave += '\n';
        }
        return clave;
    }

    const ReglasDeValores sinReglas_;
    const RevisorDeLineas revisor_;
    const RegistrosFallados& fallados_;
    std::vector<std::unordered_set<std::string>> claves_;  // by step-loop, of the records that failed
};

}  // namespace

std::vector<fs::path> ArchivosDeFallados(const DisenoDeEntrada& diseno, const fs::path& archivo) {
    std::vector<fs::path> salidas;
    for (const auto& entrada : diseno.Archivos()) {
        auto nombre = archivo.stem();
        if (!salidas.empty()) nombre += "-" + entrada.nombre;
        nombre += archivo.extension();
        salidas.push_back(salidas.empty() ? archivo : fs::path(archivo).replace_filename(nombre));
    }
    return salidas;
}

std::vector<fs::path> EscribirFallados(const DisenoDeEntrada& diseno, const std::vector<fs::path>& entradas,
                                       const RegistrosFallados& fallados, const fs::path& archivo) {
    auto salidas = ArchivosDeFallados(diseno, archivo);
    for (const auto& salida : salidas) {
        for (const auto& entrada : entradas) {
            if (EsElMismoArchivo(salida, entrada)) throw FalloDeArchivo("The rehearsal has read this file", salida);
        }
    }
    std::deque<ArchivoAbierto> abiertas;
    for (const auto& entrada : entradas) abiertas.emplace_back(entrada);
    EscritorDeFallados escritor(diseno, fallados);
    escritor.TomarClaves(abiertas.front());
    std::deque<ArchivoNuevo> nuevos;
    for (std::size_t i = 0; i < salidas.size(); ++i) escritor.Escribir(i, abiertas[i], nuevos.emplace_back(salidas[i]));
    for (auto& nuevo : nuevos) nuevo.LlevarAlDisco();
    for (auto& nuevo : nuevos) nuevo.PonerEnSuLugar();
    return salidas;
}

}  // namespace qor
