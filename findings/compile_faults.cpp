#include "findings/compile_faults.h"

#include "base/text.h"
#include "findings/consequences.h"
#include "findings/diagnosis.h"

namespace qor {

namespace {

constexpr std::size_t columnasDePublicacion = 72;
constexpr int codigoDeLineaLarga = 322;

void AgregarLineasLargas(const Generacion& g, const LineasDelReporte& reporte, std::vector<Hallazgo>& lista) {
    for (int linea = 1; linea <= reporte.Cantidad(); ++linea) {
        const auto texto = reporte.Texto(linea);
        if (texto.size() <= columnasDePublicacion || texto.front() == '*') continue;
        if (EstaEnBlanco(texto.substr(columnasDePublicacion))) continue;
        const Lugar lugar = reporte.LugarDe(linea);
        const auto celda = TextoEnLugar(g.especificacion, g.opciones, g.preferencias, lugar);
        lista.push_back(NuevoHallazgo(g.textos, codigoDeLineaLarga, lugar, celda, {Recortar(texto)}));
    }
}

// A field of the main record is written with "#" in code and conditions.
std::string NombreComoSeEscribe(const Generacion& g, const Lugar& lugar, const std::string& nombre) {
    const bool conMarca = lugar.parte == Lugar::Parte::Condiciones || (lugar.parte == Lugar::Parte::Archivo && lugar.columna == 3);
    const std::string registro = g.nombres.GTprefijo + "ITAB-";
    if (!conMarca || !Mayusculas(nombre).starts_with(Mayusculas(registro))) return nombre;
    return "#" + nombre.substr(registro.size());
}

}  // namespace

void HallazgosDelReporteSinRepetir(const Generacion& g, std::vector<Hallazgo>& lista) {
    const LineasDelReporte lineas(g.reporte);
    const auto faltas = abap::RevisarReporte(g.reporte.Texto());
    const Consecuencias consecuencias(g.especificacion, faltas, lineas, lista);
    for (const auto& falta : faltas) {
        if (consecuencias.EsDeUnLiteral(falta)) continue;
        const auto [codigo, lugar] = Diagnosticar(falta, g, lineas);
        const auto celda = TextoEnLugar(g.especificacion, g.opciones, g.preferencias, lugar);
        Hallazgo hallazgo = NuevoHallazgo(g.textos, codigo, lugar, celda,
                                          {falta.nombre.empty() ? celda : NombreComoSeEscribe(g, lugar, falta.nombre)});
        const int sentencia = falta.sentencia > 0 ? falta.sentencia : falta.linea;
        hallazgo.lineas = {falta.linea, sentencia};
        if (const auto otro = consecuencias.Causa(hallazgo, lineas.LugarDe(sentencia), falta)) {
            auto& suyas = lista[*otro].lineas;
            suyas.insert(suyas.end(), hallazgo.lineas.begin(), hallazgo.lineas.end());
        } else {
            lista.push_back(std::move(hallazgo));
        }
    }
    AgregarLineasLargas(g, lineas, lista);
}

}  // namespace qor
