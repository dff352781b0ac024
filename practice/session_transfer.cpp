#include "practice/session_transfer.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr std::size_t anchoDePrograma = 40;
constexpr std::size_t anchoDeDynpro = 4;
constexpr std::size_t columnaDeClase = 44;  // from 0, as the ones below
constexpr std::size_t columnaDeCampo = 45;
constexpr std::size_t columnaDeValor = 177;
constexpr std::size_t anchoDeCampo = 132;

void Columnas(std::string& registro, std::string_view texto, std::size_t ancho) {
    const auto parte = texto.substr(0, ancho);
    registro.append(parte).append(ancho - parte.size(), ' ');
}

std::string_view Parte(std::string_view linea, std::size_t desde, std::size_t largo) {
    return desde >= linea.size() ? std::string_view{} : SinBlancosDetras(linea.substr(desde, largo));
}

// Gathers the rows of a transaction and hands them on when the next one begins.
class LectorDeRegistros {
public:
    LectorDeRegistros(ColaDePractica& cola, std::string_view usuario) : cola_(cola), usuario_(usuario) {}

    std::string Leer(std::string_view texto) {
        for (const auto linea : PartirEnLineas(texto)) {
            ++numero_;
            if (!EstaEnBlanco(linea)) LeerLinea(linea);
        }
        if (qid_.empty()) Fallar("there is no session");
        Terminar();
        cola_.Cerrar();
        return qid_;
    }

private:
    void LeerLinea(std::string_view linea) {
        if (linea.size() > largoDeRegistro && !EstaEnBlanco(linea.substr(largoDeRegistro))) Fallar("it has more than 309 columns");
        const char clase = linea.size() > columnaDeClase ? linea[columnaDeClase] : ' ';
        const auto campo = Parte(linea, columnaDeCampo, anchoDeCampo);
        const bool enCero = Parte(linea, anchoDePrograma, anchoDeDynpro) == "0000";
        if (qid_.empty()) {
            if (clase != 'M' || !enCero) Fallar("a session begins with a line that has \"0000M\" in the columns 41 to 45");
            qid_ = cola_.Abrir(campo, usuario_, "X");
        } else if (clase == 'T' && enCero) {
            Terminar();
            transaccion_ = campo;
            abierta_ = true;
        } else if (!abierta_) {
            Fallar("a transaction begins with a line that has \"0000T\" in the columns 41 to 45");
        } else if (clase == 'X' || clase == ' ') {
            filas_.push_back({Parte(linea, 0, anchoDePrograma), Parte(linea, anchoDePrograma, anchoDeDynpro), clase == 'X', campo,
                              Parte(linea, columnaDeValor, anchoDeCampo)});
        } else {
            Fallar("it is no record of a session");
        }
    }

    void Terminar() {
        if (abierta_) cola_.Insertar(transaccion_, filas_);
        filas_.clear();
    }

    [[noreturn]] void Fallar(const std::string& motivo) const {
        throw FalloDeEjecucion("line " + std::to_string(std::max<std::size_t>(numero_, 1)) + ": " + motivo);
    }

    ColaDePractica& cola_;
    std::string_view usuario_;
    std::string qid_;
    std::string_view transaccion_;
    std::vector<FilaDeBDC> filas_;
    bool abierta_ = false;
    std::size_t numero_ = 0;
};

}  // namespace

void EscritorDeRegistros::Escribir(std::string_view programa, std::string_view dynpro, char clase, std::string_view campo,
                                   std::string_view valor) {
    bytes_.clear();
    Columnas(bytes_, programa, anchoDePrograma);
    Columnas(bytes_, dynpro.empty() ? "0000" : dynpro, anchoDeDynpro);
    bytes_ += clase;
    Columnas(bytes_, campo, anchoDeCampo);
    Columnas(bytes_, valor, anchoDeCampo);
    registro_(bytes_);
}

void ExportarSesion(ColaDePractica& cola, const EntradaDeCola& entrada, const std::filesystem::path& archivo) {
    ArchivoNuevo nuevo(archivo);
    cola.CadaRegistro(entrada, [&](std::string_view registro) {
        nuevo.Escribir(registro.substr(0, std::max(SinBlancosDetras(registro).size(), columnaDeClase + 1)));
        nuevo.Escribir("\r\n");
    });
    nuevo.PonerEnSuLugar();
}

std::string ImportarSesion(BaseDePractica& base, ColaDePractica& cola, std::string_view usuario,
                           const std::filesystem::path& archivo) {
    const std::string texto = LeerArchivo(archivo, limiteDeSesion);
    try {
        base.EmpezarUnidad();
        auto qid = LectorDeRegistros(cola, usuario).Leer(texto);
        base.TerminarUnidad();
        return qid;
    } catch (const FalloDeArchivo&) {
        base.AbandonarUnidad();
        throw;
    } catch (const FalloDeEjecucion& fallo) {
        base.AbandonarUnidad();
        throw FalloDeArchivo(AUtf8(fallo.what()), archivo);
    }
}

}  // namespace qor
