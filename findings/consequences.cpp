#include "findings/consequences.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>

#include "base/text.h"

namespace qor {

using abap::Falta;
using Clase = Falta::Clase;
using Parte = Lugar::Parte;

namespace {

// A place as far as two findings there are of one fault: the row of a table, the line of a text, the option.
struct Sitio {
    Parte parte;
    std::int16_t fila;
    std::int16_t linea;
    std::string_view opcion;
    auto operator<=>(const Sitio&) const = default;
};

Sitio SitioDe(const Lugar& lugar) {
    const bool deTabla = lugar.parte == Parte::Programa || lugar.linea == 0;
    return {lugar.parte, lugar.fila, deTabla ? std::int16_t{0} : lugar.linea, lugar.Opcion()};
}

// These tell of the specification as a whole, at whatever place.
bool EsDelConjunto(int codigo) { return codigo == 301 || codigo == 302 || codigo == 325; }

}  // namespace

// What an open literal makes of the lines around it: up to the end of its statement nothing that a line seems to say is meant, and
// what was to be declared there is not.
class Consecuencias::LineasEstropeadas {
public:
    LineasEstropeadas(const std::vector<Falta>& faltas, const LineasDelReporte& reporte) {
        for (const auto& falta : faltas) {
            if (falta.clase != Clase::LiteralAbierto) continue;
            int fin = falta.linea;
            while (fin < reporte.Cantidad() && !Recortar(reporte.Texto(fin)).ends_with('.')) ++fin;
            tramos_.push_back({std::min(falta.sentencia, falta.linea), fin});
            for (int linea = tramos_.back().primera; linea <= fin; ++linea) texto_ += Mayusculas(reporte.Texto(linea)) + "\n";
        }
    }

    bool Explican(const Falta& falta) const {
        if (falta.clase == Clase::LiteralAbierto || tramos_.empty()) return false;
        if (falta.clase == Clase::NombreSinDeclarar && Contiene(texto_, Mayusculas(falta.nombre))) return true;
        return std::any_of(tramos_.begin(), tramos_.end(),
                           [&](const Tramo& tramo) { return falta.linea >= tramo.primera && falta.linea <= tramo.ultima; });
    }

private:
    struct Tramo {
        int primera;
        int ultima;
    };
    std::vector<Tramo> tramos_;
    std::string texto_;
};

// What is wrong with the specification itself, and so makes lines of the report wrong.
class Consecuencias::YaDicho {
public:
    YaDicho(const Especificacion& especificacion, const LineasDelReporte& reporte, const std::vector<Hallazgo>& lista)
        : especificacion_(especificacion) {
        for (std::size_t i = 0; i < lista.size(); ++i) {
            if (lista[i].gravedad == Gravedad::Error && !EsDelConjunto(lista[i].codigo)) Anotar(lista[i], i);
        }
        AnotarFilasDeCampos();
        AnotarLineas(reporte);
    }

    // The number of the finding in the list that the new one follows from.
    std::optional<std::size_t> Causa(const Hallazgo& hallazgo, const Lugar& sentencia, const Falta& falta) const {
        const std::string_view nombre = falta.nombre;
        if (hallazgo.lugar.Opcion() == "OneFileOption") return PrimeroDe({105, 106, 107, 326});
        if (hallazgo.lugar.Opcion() == "ErrorHandlingCheck" && hallazgo.codigo == 399) return PrimeroDe({326});
        if (hallazgo.codigo == 315) {
            if (const auto campo = DeCampoConFalta(nombre)) return campo;
        }
        if (hallazgo.codigo == 318 && hallazgo.lugar.parte == Parte::BAPIs) return En(sinDeclarar_, Mayusculas(nombre));
        if (EsDelConjunto(hallazgo.codigo)) return std::nullopt;
        if (const auto suyo = En(sitios_, SitioDe(hallazgo.lugar))) return suyo;
        if (const auto suyo = En(sitios_, SitioDe(sentencia))) return suyo;
        return En(lineas_, falta.linea);
    }

private:
    template <typename Clave>
    static std::optional<std::size_t> En(const std::map<Clave, std::size_t>& donde, const Clave& clave) {
        const auto lugar = donde.find(clave);
        return lugar == donde.end() ? std::nullopt : std::optional(lugar->second);
    }

    std::optional<std::size_t> PrimeroDe(std::initializer_list<int> codigos) const {
        for (const int codigo : codigos) {
            if (const auto hallado = En(codigos_, codigo)) return hallado;
        }
        return std::nullopt;
    }

    void Anotar(const Hallazgo& hallazgo, std::size_t numero) {
        sitios_.try_emplace(SitioDe(hallazgo.lugar), numero);
        codigos_.try_emplace(hallazgo.codigo, numero);
        const Lugar& lugar = hallazgo.lugar;
        if (hallazgo.codigo == 115) campos_.try_emplace(std::string(Recortar(hallazgo.celda)), numero);
        if (lugar.parte == Parte::Archivo && lugar.columna < 2) {
            campos_.try_emplace(especificacion_.TablaArchivo[lugar.fila].campo, numero);
        }
        if (hallazgo.codigo == 205) sinDeclarar_.try_emplace(Mayusculas(Recortar(AntesDe(hallazgo.celda, '-'))), numero);
    }

    // Rows that send a field whose own row is wrong.
    void AnotarFilasDeCampos() {
        if (campos_.empty()) return;
        for (int r = 0; r <= ultimaFila; ++r) {
            if (const auto falta = En(campos_, especificacion_.TablaTransaccion[r].valor)) {
                sitios_.try_emplace(SitioDe(Lugar::EnPrograma(r, 3)), *falta);
            }
        }
    }

    // Rows behind a wrong one in the same statement of the report.
    void AnotarLineas(const LineasDelReporte& reporte) {
        for (int linea = 1; linea <= reporte.Cantidad() && !sitios_.empty(); ++linea) {
            const Lugar lugar = reporte.LugarDe(linea);
            if (lugar.parte != Parte::Programa && lugar.parte != Parte::Archivo) continue;
            const auto falta = En(sitios_, SitioDe(lugar));
            if (!falta) continue;
            for (int n = linea; n <= reporte.Cantidad(); ++n) {
                if (!lineas_.try_emplace(n, *falta).second || Recortar(reporte.Texto(n)).ends_with('.')) break;
            }
        }
    }

    std::optional<std::size_t> DeCampoConFalta(std::string_view nombre) const {
        if (nombre.ends_with("AUTOCOUNTER")) return PrimeroDe({108, 109});
        const auto campo =
            std::find_if(campos_.begin(), campos_.end(), [&](const auto& par) { return nombre.ends_with("-" + par.first); });
        return campo == campos_.end() ? std::nullopt : std::optional(campo->second);
    }

    const Especificacion& especificacion_;
    std::map<Sitio, std::size_t> sitios_;
    std::map<int, std::size_t> lineas_;
    std::map<int, std::size_t> codigos_;
    std::map<std::string, std::size_t> campos_;
    std::map<std::string, std::size_t> sinDeclarar_;
};

Consecuencias::Consecuencias(const Especificacion& especificacion, const std::vector<Falta>& faltas,
                             const LineasDelReporte& reporte, const std::vector<Hallazgo>& lista)
    : estropeadas_(std::make_unique<LineasEstropeadas>(faltas, reporte)),
      yaDicho_(std::make_unique<YaDicho>(especificacion, reporte, lista)) {}

Consecuencias::~Consecuencias() = default;

bool Consecuencias::EsDeUnLiteral(const Falta& falta) const { return estropeadas_->Explican(falta); }

std::optional<std::size_t> Consecuencias::Causa(const Hallazgo& hallazgo, const Lugar& sentencia, const Falta& falta) const {
    return yaDicho_->Causa(hallazgo, sentencia, falta);
}

}  // namespace qor
