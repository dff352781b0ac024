#include "sap/widths.h"

#include <algorithm>
#include <optional>
#include <set>

#include "base/busy_pointer.h"
#include "base/failure.h"
#include "base/new_file.h"
#include "base/paths.h"
#include "base/text.h"
#include "model/cells.h"
#include "model/control_characters.h"
#include "model/declarations.h"
#include "sap/remote_reports.h"
#include "sap/temporary_file.h"

namespace qor {

namespace {

constexpr std::size_t anchoDeCampo = 30;
constexpr std::size_t anchoDePedido = 90;  // the three fields, in front of the length
constexpr int anchoDeDeclaracion = 71;

struct CampoDeDiccionario {
    std::string_view tabla;
    std::string_view campo;
};

std::string Columna30(std::string_view texto) {
    std::string columna(texto.substr(0, anchoDeCampo));
    columna.resize(anchoDeCampo, ' ');
    return columna;
}

bool TieneGuion(std::string_view texto) { return texto.find('-') != std::string_view::npos; }

void EscribirLinea(ArchivoNuevo& archivo, const std::string& linea) { archivo.Escribir(linea + "\r\n"); }

// The lines that the program side asks for.
class Pedidos {
public:
    Pedidos(const Especificacion& especificacion, ArchivoNuevo& archivo)
        : especificacion_(especificacion),
          declaraciones_(PartirLineas(especificacion.VariablesGlobales, anchoDeDeclaracion)),
          archivo_(archivo) {}

    void Escribir() {
        for (int r = 0; r <= ultimaFila; ++r) {
            const auto& fila = especificacion_.TablaTransaccion[r];
            if (fila.EsCabezaBAPI()) enBAPI_ = true;
            if (fila.EsCabezaTransaccion()) enBAPI_ = false;
            if (!EstaEnBlanco(fila.campo)) Escribir(fila.campo, fila.valor);
        }
    }

private:
    void Escribir(std::string_view campo, std::string_view valor) {
        std::string tipo;  // owns what the table of a BAPI's field points to
        const bool conGuion = TieneGuion(campo);
        if (!enBAPI_ && !conGuion) return;
        std::string_view tabla = AntesDe(campo, '-');
        // A subscript, or the "(+)" of a table row, is no part of the field.
        std::string_view nombre = AntesDe(DespuesDe(campo, '-').substr(0, anchoDeCampo), '(');
        if (enBAPI_) {
            tipo = BuscarTipoVariable(declaraciones_, tabla);
            tabla = tipo;
            if (!conGuion) {
                if (!TieneGuion(tipo)) throw FalloDeEjecucion("the type of a scalar parameter names no field");
                tabla = AntesDe(tipo, '-');
                nombre = DespuesDe(tipo, '-');
            }
        }
        EscribirLinea(archivo_, Columna30(tabla) + Columna30(nombre) + Columna30(valor));
    }

    const Especificacion& especificacion_;
    std::vector<std::string> declaraciones_;
    ArchivoNuevo& archivo_;
    bool enBAPI_ = false;
};

// The lengths behind the lines of the file, one for each row of the list.
void CompletarArchivo(const std::filesystem::path& archivo, const std::vector<std::string_view>& lineas,
                      const FilasDeLista& largos) {
    ArchivoNuevo nuevo(archivo);
    for (std::size_t i = 0; i < largos.size(); ++i) {
        std::string linea(i < lineas.size() ? lineas[i].substr(0, anchoDePedido) : std::string_view{});
        linea.resize(anchoDePedido, ' ');
        EscribirLinea(nuevo, linea + largos[i]);
    }
    nuevo.PonerEnSuLugar();
}

// Writes the file. The lines in front of one that fails come into it all the same.
void EscribirPedidos(const Especificacion& especificacion, const std::filesystem::path& archivo) {
    ArchivoNuevo nuevo(archivo);
    try {
        Pedidos(especificacion, nuevo).Escribir();
    } catch (const FalloDeEjecucion&) {
        nuevo.PonerLoHecho();
        throw;
    }
    nuevo.PonerEnSuLugar();
}

}  // namespace

bool GenerarInfoCampos(const Documento& documento, const std::filesystem::path& archivo, bool conectado, const TextosIdioma& textos,
                       Vista& vista) {
    if (!SinCaracteresDeControl(documento.especificacion, documento.opciones, vista)) return false;
    try {
        EscribirPedidos(documento.especificacion, archivo);
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(SobreArchivo(ConDetalle(Componer(textos, {328}), fallo), archivo));
        return false;
    }
    if (!conectado) vista.Informar(SobreArchivo(Componer(textos, {327}), archivo));
    return true;
}

bool LlenarAnchos(Especificacion& especificacion, std::string_view texto) {
    bool lleno = false;
    for (const auto linea : PartirEnLineas(texto)) {
        const double ancho = Numero(Tramo(linea, 91, 6));
        if (ancho <= 0) continue;
        const auto campo = Recortar(Tramo(linea, 61, anchoDeCampo));
        for (int r = 0; r <= ultimaFila && !especificacion.FilaArchivoVacia(r); ++r) {
            auto& fila = especificacion.TablaArchivo[r];
            if (Recortar(fila.campo) != campo || !EstaEnBlanco(fila.ancho)) continue;
            fila.ancho = TextoDeNumero(ancho);
            lleno = true;
        }
    }
    return lleno;
}

bool ImportInfo(Documento& documento, const std::filesystem::path& archivo, const TextosIdioma& textos, Vista& vista) {
    try {
        if (LlenarAnchos(documento.especificacion, LeerArchivo(archivo))) documento.Cambiar();
        return true;
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(ConDetalle(Componer(textos, {328}), fallo, archivo));
        return false;
    }
}

std::string CamposSinAncho(const Especificacion& especificacion) {
    std::string campos;
    std::set<std::string_view> dichos;
    for (int fila = 0; fila < especificacion.FilasArchivo(); ++fila) {
        const auto& campo = especificacion.TablaArchivo[static_cast<std::size_t>(fila)];
        if (!EstaEnBlanco(campo.ancho) || !dichos.insert(Recortar(campo.campo)).second) continue;
        campos += (campos.empty() ? "" : ", ") + std::string(Recortar(campo.campo));
    }
    return campos;
}

LineasABAP ReporteDeAnchos(const std::vector<std::string_view>& lineas) {
    LineasABAP reporte = {"REPORT QOR.",        "DATA: BEGIN OF ITAB OCCURS 0,", "        TABLE(30),", "        FIELD(30),",
                          "      END OF ITAB,", "      WIDTH LIKE DD03L-LENG."};
    for (std::size_t i = 0; i < lineas.size(); ++i) {
        const auto tabla = Recortar(Tramo(lineas[i], 1, anchoDeCampo));
        const auto campo = Recortar(Tramo(lineas[i], 31, anchoDeCampo));
        if (TieneControl(tabla) || TieneControl(campo)) {
            throw FalloDeEjecucion("line " + std::to_string(i + 1) + " of the field file holds a control character");
        }
        reporte.push_back("ITAB-TABLE = '" + EnLiteral(tabla) + "'.");
        reporte.push_back("ITAB-FIELD = '" + EnLiteral(campo) + "'.");
        reporte.emplace_back("APPEND ITAB.");
    }
    // Printed for every entry, found or not, so the n-th row belongs to the n-th line. The blank behind WHERE is part of its line.
    reporte.insert(reporte.end(), {"LOOP AT ITAB.", "  WIDTH = 0.", "  SELECT SINGLE LENG INTO WIDTH FROM DD03L WHERE ",
                                   "  TABNAME = ITAB-TABLE AND FIELDNAME = ITAB-FIELD.", "  WRITE: / WIDTH.", "ENDLOOP."});
    return reporte;
}

bool ObtenerAnchos(SesionSAP& sesion, const std::filesystem::path& archivo) {
    try {
        sesion.Motivo.clear();
        const std::string texto = LeerArchivo(archivo);
        const auto lineas = PartirEnLineas(texto);
        const auto largos = EjecutarReporte(sesion, ReporteDeAnchos(lineas));
        if (!largos) return false;
        CompletarArchivo(archivo, lineas, *largos);
        return true;
    } catch (const FalloDeEjecucion& fallo) {
        sesion.Motivo = fallo.what();
        return false;
    }
}

bool ButtonOnlineAnchos(Documento& documento, SesionSAP& sesion, const TextosIdioma& textos, Vista& vista) {
    if (!SinCaracteresDeControl(documento.especificacion, documento.opciones, vista)) return false;
    const auto ArchivoAnchosTemporal = CrearTemporal(sesion);
    GenerarInfoCampos(documento, ArchivoAnchosTemporal, true, textos, vista);
    {
        const ConPunteroOcupado puntero(vista);
        if (!ObtenerAnchos(sesion, ArchivoAnchosTemporal)) {
            vista.Advertir(ConMotivo(sesion, Componer(textos, {415})));
            return false;
        }
    }
    const bool leidos = ImportInfo(documento, ArchivoAnchosTemporal, textos, vista);
    BorrarTemporal(ArchivoAnchosTemporal);
    return leidos;
}

}  // namespace qor
