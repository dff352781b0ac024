#include "tests/support/digest.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <utility>

#include "base/files.h"
#include "base/text.h"

namespace qor::pruebas {

namespace {

constexpr int contadas = 5;         // differences that are told with their lines
constexpr std::size_t lineas = 25;  // of each side of a difference

std::string Suma(std::string_view texto, int cifras) {
    std::uint64_t suma = 14695981039346656037U;
    for (const char c : texto) suma = (suma ^ static_cast<unsigned char>(c)) * 1099511628211U;
    suma ^= suma >> 32U;
    char hexadecimal[20];
    std::snprintf(hexadecimal, sizeof hexadecimal, "%016llx", static_cast<unsigned long long>(suma));
    return std::string(hexadecimal).substr(static_cast<std::size_t>(16 - cifras));
}

std::string Sumas(const std::vector<Seccion>& secciones) {
    std::string todo;
    std::string cortas;
    for (const auto& seccion : secciones) {
        todo += seccion.texto;
        cortas += ' ' + Suma(seccion.texto, 4);
    }
    return Suma(todo, 16) + cortas;
}

std::string Cabeza(const std::string& nombre, const std::string& seccion) { return "\n== " + nombre + " / " + seccion + "\n"; }

// The text of a section in the file of the last run; nothing when it isn't there.
std::string TextoAnterior(std::string_view anterior, const std::string& nombre, const std::string& seccion) {
    const auto cabeza = Cabeza(nombre, seccion);
    const auto lugar = anterior.find(cabeza);
    if (lugar == std::string_view::npos) return {};
    const auto texto = anterior.substr(lugar + cabeza.size());
    return std::string(texto.substr(0, texto.find("\n== ")));
}

// The lines without those that both texts begin or end with.
std::string Comparar(const std::string& antes, const std::string& ahora) {
    auto viejas = PartirEnLineas(antes);
    auto nuevas = PartirEnLineas(ahora);
    const auto principio =
        static_cast<std::size_t>(std::mismatch(viejas.begin(), viejas.end(), nuevas.begin(), nuevas.end()).first - viejas.begin());
    viejas.erase(viejas.begin(), viejas.begin() + static_cast<std::ptrdiff_t>(principio));
    nuevas.erase(nuevas.begin(), nuevas.begin() + static_cast<std::ptrdiff_t>(principio));
    while (!viejas.empty() && !nuevas.empty() && viejas.back() == nuevas.back()) viejas.pop_back(), nuevas.pop_back();
    std::string diferencia = "    line " + std::to_string(principio + 1) + "\n";
    for (const auto& [signo, lado] : {std::pair("    -", &viejas), std::pair("    +", &nuevas)}) {
        for (std::size_t i = 0; i < std::min(lado->size(), lineas); ++i) diferencia += signo + std::string((*lado)[i]) + "\n";
        if (lado->size() > lineas) diferencia += "      ...\n";
    }
    return diferencia;
}

std::map<std::string, std::string> LeerEsperado(const std::filesystem::path& ruta) {
    std::map<std::string, std::string> esperado;
    if (!std::filesystem::exists(ruta)) return esperado;
    const std::string contenido = LeerArchivo(ruta);
    for (const auto linea : PartirEnLineas(contenido)) {
        if (const auto fin = linea.find(": "); fin != std::string_view::npos)
            esperado.emplace(linea.substr(0, fin), linea.substr(fin + 2));
    }
    return esperado;
}

void Escribir(const std::filesystem::path& ruta, const std::string& texto) { std::ofstream(ruta, std::ios::binary) << texto; }

}  // namespace

std::vector<Seccion> PartirInforme(std::string_view informe) {
    std::vector<Seccion> secciones{{"banner", {}}};
    std::size_t comentario = 0;  // where the comment in front of a line begins
    std::size_t inicio = 0;
    for (const auto linea : PartirEnLineas(informe)) {
        const auto lugar = static_cast<std::size_t>(linea.data() - informe.data());
        const auto empezar = [&](std::string nombre, std::size_t desde) {
            secciones.back().texto = informe.substr(inicio, desde - inicio);
            secciones.push_back({std::move(nombre), {}});
            inicio = desde;
        };
        if (linea.starts_with("FORM ")) {
            empezar(std::string(linea.substr(0, linea.find_first_of(" .", 5))), comentario);
        } else if (linea == "REPORT QOR.") {
            empezar("declarations", lugar);
        } else if (linea == "START-OF-SELECTION.") {
            empezar("main flow", lugar);
        } else if (linea.starts_with("AT SELECTION-SCREEN")) {
            empezar(std::string(linea), lugar);
        } else if ((linea.starts_with("SELECTION-SCREEN") || linea.starts_with("PARAMETERS")) &&
                   secciones.back().nombre == "declarations") {
            empezar("selection screen", lugar);
        }
        if (!linea.starts_with('*')) comentario = lugar + linea.size() + 2;
    }
    secciones.back().texto = informe.substr(inicio);
    return secciones;
}

Compendio::Compendio(std::filesystem::path esperado, std::filesystem::path anterior)
    : esperado_(std::move(esperado)), anterior_(std::move(anterior)) {}

void Compendio::Agregar(const std::string& nombre, std::vector<Seccion> secciones) {
    if (!textos_.emplace(nombre, std::move(secciones)).second) textos_[nombre + " twice"] = {};
}

std::string Compendio::DiferenciaDe(const std::string& nombre, const std::string& antes, const std::vector<Seccion>& secciones,
                                    std::string_view anterior, std::map<std::string, int>& porSeccion) const {
    std::istringstream sumas(antes);
    std::string suma;
    sumas >> suma;
    std::string diferencia;
    for (const auto& seccion : secciones) {
        suma.clear();
        sumas >> suma;
        if (suma == Suma(seccion.texto, 4)) continue;
        ++porSeccion[seccion.nombre];
        diferencia += "  " + nombre + " / " + seccion.nombre + "\n" +
                      Comparar(TextoAnterior(anterior, nombre, seccion.nombre), seccion.texto);
    }
    return diferencia;
}

std::string Compendio::Diferencias() const {
    std::string nuevo;
    std::string todos;
    for (const auto& [nombre, secciones] : textos_) {
        nuevo += nombre + ": " + Sumas(secciones) + "\n";
        for (const auto& seccion : secciones) todos += Cabeza(nombre, seccion.nombre) + seccion.texto;
    }
    if (std::getenv("QOR_UPDATE_EXPECTED") != nullptr) Escribir(esperado_, nuevo);
    auto esperado = LeerEsperado(esperado_);
    const std::string anterior = std::filesystem::exists(anterior_) ? LeerArchivo(anterior_) : std::string();
    std::string diferencias;
    std::map<std::string, int> porSeccion;
    int distintos = 0;
    for (const auto& [nombre, secciones] : textos_) {
        const std::string antes = std::exchange(esperado[nombre], {});
        if (antes == Sumas(secciones)) continue;
        const auto diferencia = DiferenciaDe(nombre, antes, secciones, anterior, porSeccion);
        if (++distintos <= contadas) diferencias += diferencia.empty() ? "  " + nombre + " lacks a section\n" : diferencia;
    }
    for (const auto& [nombre, sumas] : esperado) {
        if (!sumas.empty()) ++distintos, diferencias += "  " + nombre + " is made no more\n";
    }
    if (distintos == 0) return Escribir(anterior_, todos), "";
    std::string resumen = std::to_string(distintos) + " of " + std::to_string(textos_.size()) + " are others:";
    for (const auto& [seccion, cuantos] : porSeccion) resumen += " " + seccion + " (" + std::to_string(cuantos) + ")";
    return resumen + "\n" + diferencias;
}

}  // namespace qor::pruebas
