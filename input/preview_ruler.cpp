#include "input/preview_ruler.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "base/text.h"
#include "model/columns.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeCampos = ultimaFila + 1;

std::string NombreNumerado(std::size_t numero) { return "FIELD" + std::to_string(numero); }

std::vector<std::string_view> PartirEnTabuladores(std::string_view linea) {
    std::vector<std::string_view> partes;
    for (;;) {
        const auto lugar = linea.find('\t');
        partes.push_back(Recortar(linea.substr(0, lugar)));
        if (lugar == std::string_view::npos) return partes;
        linea.remove_prefix(lugar + 1);
    }
}

std::string ComoNombre(std::string_view texto) {
    std::string nombre = Mayusculas(ReemplazarBlancos(texto));
    std::replace_if(nombre.begin(), nombre.end(), EsControl, '_');
    nombre.resize(std::min(nombre.size(), largoMaximoDeCampo));
    return nombre;
}

// A name that is there already gets a number, in place of its end where there is no room.
std::string Distinto(const std::string& nombre, const std::set<std::string>& usados) {
    std::string distinto = nombre;
    for (int n = 2; usados.count(distinto) != 0; ++n) {
        const std::string numero = std::to_string(n);
        distinto = nombre.substr(0, largoMaximoDeCampo - numero.size()) + numero;
    }
    return distinto;
}

}  // namespace

std::string EscalaDe(std::size_t columnas) {
    std::string escala(columnas, '.');
    for (std::size_t n = 5; n <= columnas; n += 5) {
        const std::string numero = std::to_string(n);
        escala.replace(n - numero.size(), numero.size(), numero);
    }
    return escala;
}

std::size_t BordeDe(const CampoDeRegistro& campo) { return campo.columna + campo.ancho; }

int BordeEn(const ClaseDeRegistro& clase, double columna, double alcance) {
    int elegido = -1;
    double menor = alcance;
    for (std::size_t i = 0; i < clase.campos.size(); ++i) {
        const auto borde = static_cast<double>(BordeDe(clase.campos[i]));
        const double distancia = std::abs(columna - borde);
        if (distancia > alcance) continue;
        const bool mismoLugar =
            elegido >= 0 && BordeDe(clase.campos[i]) == BordeDe(clase.campos[static_cast<std::size_t>(elegido)]);
        // The first one without a width behind the one that ends here.
        const bool primeroSinAncho = mismoLugar && columna > borde && clase.campos[static_cast<std::size_t>(elegido)].ancho > 0;
        if (!primeroSinAncho && (mismoLugar || (elegido >= 0 && distancia >= menor))) continue;
        elegido = static_cast<int>(i);
        menor = distancia;
    }
    return elegido;
}

std::size_t AnchoHasta(const CampoDeRegistro& campo, std::ptrdiff_t columna) {
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(columna - static_cast<std::ptrdiff_t>(campo.columna), 1,
                                                               static_cast<std::ptrdiff_t>(anchoMaximoDeCampo)));
}

std::size_t AnchoMas(const CampoDeRegistro& campo, std::ptrdiff_t columnas) {
    return AnchoHasta(campo, static_cast<std::ptrdiff_t>(BordeDe(campo)) + columnas);
}

void MarcasDeRegla::Alternar(std::size_t columna) {
    const auto lugar = std::lower_bound(columnas_.begin(), columnas_.end(), columna);
    if (lugar != columnas_.end() && *lugar == columna) {
        columnas_.erase(lugar);
    } else if (columna > 0) {
        columnas_.insert(lugar, columna);
    }
}

std::vector<FilaDeArchivo> CamposDeMarcas(const MarcasDeRegla& marcas, std::size_t desde, std::size_t largo) {
    std::vector<std::size_t> finales = marcas.Columnas();
    std::erase_if(finales, [desde](std::size_t columna) { return columna <= desde; });
    if (finales.empty()) return {};
    if (largo > finales.back()) finales.push_back(largo);
    finales.resize(std::min(finales.size(), maximoDeCampos));
    std::vector<FilaDeArchivo> filas;
    for (const auto hasta : finales) {
        filas.push_back({NombreNumerado(filas.size() + 1), std::to_string(hasta - desde), {}, {}});
        desde = hasta;
    }
    return filas;
}

std::vector<FilaDeArchivo> CamposDeCabecera(std::string_view cabecera, const std::vector<std::string>& lineas) {
    auto nombres = PartirEnTabuladores(cabecera);
    nombres.resize(std::min(nombres.size(), maximoDeCampos));
    std::vector<std::size_t> anchos(nombres.size(), 0);
    for (const auto& linea : lineas) {
        const auto valores = PartirEnTabuladores(linea);
        for (std::size_t i = 0; i < std::min(valores.size(), anchos.size()); ++i)
            anchos[i] = std::max(anchos[i], valores[i].size());
    }
    std::set<std::string> usados;
    std::vector<FilaDeArchivo> filas;
    for (std::size_t i = 0; i < nombres.size(); ++i) {
        std::string nombre = ComoNombre(nombres[i]);
        nombre = Distinto(nombre.empty() ? NombreNumerado(i + 1) : nombre, usados);
        usados.insert(nombre);
        filas.push_back({nombre, anchos[i] == 0 ? std::string() : std::to_string(anchos[i]), {}, {}});
    }
    return filas;
}

}  // namespace qor
