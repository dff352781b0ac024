#include "practice/table_transfer.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "base/code_page.h"
#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"
#include "practice/batch_rows.h"
#include "practice/error_rows.h"
#include "practice/query_text.h"

namespace qor {

namespace {

struct ColumnaDeBajada {
    const char* nombre;
    std::size_t ancho;
};

// In front of the line.
constexpr std::array columnas = {ColumnaDeBajada{"MANDT", 3},      ColumnaDeBajada{"PROGID", 10},   ColumnaDeBajada{"BATCH", 10},
                                 ColumnaDeBajada{"OPERATION", 10}, ColumnaDeBajada{"SEQUENCE", 10}, ColumnaDeBajada{"PROCESSED", 1},
                                 ColumnaDeBajada{"USERNAME", 12},  ColumnaDeBajada{"ID", 3},        ColumnaDeBajada{"LENGTH", 3}};
constexpr std::size_t columnasDeClave = 5;
constexpr std::size_t anchoDeClave = 43;
constexpr std::size_t comienzoDeLinea = 62;
constexpr std::string_view largoSinLugar = "***";

const DefinicionDeTabla& TablaDeErrores(BaseDePractica& base, std::string_view nombre) {
    const auto* const tabla = base.BuscarTabla(nombre);
    if (tabla == nullptr) throw FalloDeEjecucion("the practice system has no table " + std::string(nombre));
    if (tabla->clase != DefinicionDeTabla::Clase::DeErrores) {
        throw FalloDeEjecucion("the table " + std::string(nombre) + " is no error table");
    }
    return *tabla;
}

std::string LineaDeBajada(std::span<const abap::ValorDeBase> fila) {
    std::string linea;
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        const std::string valor = TextoDeValor(fila[i]);
        const std::size_t ancho = columnas[i].ancho;
        if (columnas[i].nombre != std::string_view("LENGTH")) {
            linea.append(valor).append(valor.size() < ancho ? ancho - valor.size() : 0, ' ');
        } else if (valor.size() > ancho) {
            linea += largoSinLugar;
        } else {
            linea.append(ancho - valor.size(), '0').append(valor);
        }
    }
    linea += TextoDeValor(fila.back());
    return linea;
}

class LectorDeBajada {
public:
    LectorDeBajada(const DefinicionDeTabla& tabla, const std::string& cliente) : tabla_(tabla), cliente_(cliente) {
        for (const auto& columna : columnas) nombres_.emplace_back(columna.nombre);
        nombres_.emplace_back("LINE");
    }

    std::vector<std::vector<abap::ValorDeBase>> Leer(std::string_view texto) {
        std::vector<std::vector<abap::ValorDeBase>> filas;
        std::vector<std::string_view> lineas = PartirEnLineas(texto);
        while (!lineas.empty() && EstaEnBlanco(lineas.back())) lineas.pop_back();
        if (lineas.empty()) throw FalloDeEjecucion("line 1: there is nothing in it");
        for (std::size_t i = 0; i < lineas.size(); ++i) {
            try {
                filas.push_back(LeerLinea(lineas[i]));
            } catch (const FalloDeEjecucion& fallo) {
                throw FalloDeEjecucion("line " + std::to_string(i + 1) + ": " + fallo.what());
            }
        }
        return filas;
    }

private:
    std::vector<abap::ValorDeBase> LeerLinea(std::string_view linea) {
        if (linea.size() < comienzoDeLinea) throw FalloDeEjecucion("it is shorter than the 62 columns in front of the data");
        std::vector<std::string> textos;
        std::size_t lugar = 0;
        for (const auto& columna : columnas) {
            textos.emplace_back(linea.substr(lugar, columna.ancho));
            lugar += columna.ancho;
        }
        textos.emplace_back(SinBlancosDetras(linea.substr(comienzoDeLinea)));
        for (std::size_t i = 1; i < columnasDeClave; ++i) {
            if (textos[i].find_first_not_of("0123456789") != std::string::npos) {
                throw FalloDeEjecucion("\"" + textos[i] + "\" does not fit the column " + nombres_[i]);
            }
        }
        if (!claves_.insert(std::string(linea.substr(0, anchoDeClave))).second) {
            throw FalloDeEjecucion("the key stands on an earlier line already");
        }
        if (Recortar(textos[0]) != cliente_) throw FalloDeEjecucion("\"" + textos[0] + "\" is not the client " + cliente_);
        auto& largo = textos[columnas.size() - 1];
        // What the editor has put behind the told length counts too.
        if (largo == largoSinLugar) largo = std::to_string(textos.back().size());
        auto fila = LeerFila(tabla_, nombres_, textos, cliente_);
        if (!fila.motivo.empty()) throw FalloDeEjecucion(fila.motivo);
        auto& entero = fila.valores[columnas.size() - 1];
        entero = std::max(std::get<std::int64_t>(entero), static_cast<std::int64_t>(textos.back().size()));
        return std::move(fila.valores);
    }

    const DefinicionDeTabla& tabla_;
    const std::string& cliente_;
    std::vector<std::string> nombres_;
    std::set<std::string, std::less<>> claves_;
};

}  // namespace

FilasBajadas BajarTabla(BaseDePractica& base, std::string_view nombre, const std::filesystem::path& archivo) {
    TablaDeErrores(base, nombre);
    FilasBajadas bajadas;
    abap::ConsultaDeBase consulta;
    consulta.tabla = nombre;
    ArchivoNuevo nuevo(archivo);
    for (const bool definiciones : {true, false}) {
        consulta.donde = {};
        consulta.donde.clase = abap::CondicionDeBase::Clase::Compara;
        consulta.donde.columna = "BATCH";
        consulta.donde.operador = definiciones ? "=" : "<>";
        consulta.donde.valores = {std::string(10, '0')};
        const auto filas = base.Seleccionar(consulta);
        std::vector<abap::ValorDeBase> fila;
        while (filas->Siguiente(fila)) {
            nuevo.Escribir(LineaDeBajada(fila) + "\r\n");
            ++(definiciones ? bajadas.definiciones : bajadas.filas);
        }
    }
    nuevo.PonerEnSuLugar();
    return bajadas;
}

FilasSubidas SubirTabla(BaseDePractica& base, std::string_view nombre, const std::filesystem::path& archivo) {
    const auto& tabla = TablaDeErrores(base, nombre);
    const std::string texto = LeerArchivo(archivo, limiteDeSesion);
    try {
        const auto filas = LectorDeBajada(tabla, base.Cliente()).Leer(texto);
        FilasSubidas subidas;
        base.EmpezarUnidad();
        for (const auto& fila : filas) {
            if (base.PonerFilaEn(tabla, fila)) {
                ++subidas.nuevas;
            } else {
                subidas.cambiadas += base.ActualizarFila(tabla.estructura, fila);
            }
        }
        base.TerminarUnidad();
        return subidas;
    } catch (const FalloDeArchivo&) {
        base.AbandonarUnidad();
        throw;
    } catch (const FalloDeEjecucion& fallo) {
        base.AbandonarUnidad();
        throw FalloDeArchivo(AUtf8(fallo.what()), archivo);
    } catch (...) {
        base.AbandonarUnidad();
        throw;
    }
}

}  // namespace qor
