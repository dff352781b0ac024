#include <map>

#include "base/busy_pointer.h"
#include "base/failure.h"
#include "base/new_file.h"
#include "base/text.h"
#include "dataset/columns.h"
#include "dataset/data_set.h"
#include "dataset/line_reader.h"

namespace qor {

namespace {

constexpr std::size_t maximoLineasDeGrupo = 10001;

// Where a field stands in a line: in a session by its name, in an error table by the line's identifier.
class Campo {
public:
    Campo(const JuegoDeDatos& datos, std::string_view nombre)
        : nombre_(Recortar(nombre)), deSesion_(datos.tipo == TipoArchivo::BDC) {
        for (const auto& definicion : datos.definiciones) {
            if (definicion.nombre == nombre_) lugares_[definicion.linea] = {definicion.posicion, definicion.ancho};
        }
    }

    bool SinNombre() const { return nombre_.empty(); }

    struct Lugar {
        int posicion;
        int ancho;
    };

    bool Esta(std::string_view linea, Lugar& lugar) const {
        if (deSesion_) return EsCampoDeSesion(linea) && CampoDeSesion(linea) == nombre_;
        const auto encontrado = lugares_.find(static_cast<int>(Numero(Columnas(linea, 57, 59))));
        if (encontrado == lugares_.end()) return false;
        lugar = encontrado->second;
        return true;
    }

    std::string_view Valor(std::string_view linea, const Lugar& lugar) const {
        if (deSesion_) return DesdeColumna(linea, columnaDeValor);
        const auto desde = static_cast<std::size_t>(lugar.posicion + columnaDeDatos);
        return desde > linea.size() ? std::string_view{} : linea.substr(desde - 1, static_cast<std::size_t>(lugar.ancho));
    }

private:
    std::string nombre_;
    bool deSesion_;
    std::map<int, Lugar> lugares_;
};

std::string ReemplazarSinCaja(std::string_view texto, const std::string& viejo, const std::string& nuevo) {
    if (viejo.empty()) return std::string(texto);
    const std::string mayusculas = Mayusculas(texto);
    std::string resultado;
    std::size_t inicio = 0;
    for (auto lugar = mayusculas.find(viejo); lugar != std::string::npos; lugar = mayusculas.find(viejo, inicio)) {
        resultado.append(texto.substr(inicio, lugar - inicio)).append(nuevo);
        inicio = lugar + viejo.size();
    }
    return resultado.append(texto.substr(inicio));
}

std::string AlAncho(std::string texto, std::size_t ancho) {
    texto.resize(ancho, ' ');
    return texto;
}

// One pass over the file, group by group.
class Pasada {
public:
    Pasada(LectorDeLineas& lector, const Salida& salida, const JuegoDeDatos& datos, const Reemplazo& reemplazo)
        : lector_(lector),
          salida_(salida),
          reemplazo_(reemplazo),
          deSesion_(datos.tipo == TipoArchivo::BDC),
          campo_(datos, reemplazo.campo),
          condiciones_{Campo(datos, reemplazo.condiciones[0].campo), Campo(datos, reemplazo.condiciones[1].campo),
                       Campo(datos, reemplazo.condiciones[2].campo)},
          valorNuevo_(Recortar(reemplazo.nuevo)),
          valorViejo_(Mayusculas(Recortar(reemplazo.viejo))) {}

    // False when the user stopped.
    bool Correr(const Progreso& progreso) {
        LectorDeLineas::Linea linea;
        while (lector_.Siguiente(linea)) {
            if (EmpiezaGrupo(lector_.Texto(linea))) {
                TerminarGrupo();
                linea.inicio = 0;
                if (progreso && !progreso(static_cast<double>(lector_.Leidos()) / static_cast<double>(lector_.Tamano())))
                    return false;
                Recordar(lector_.Texto(linea));
            }
            if (grupo_.size() == maximoLineasDeGrupo) throw FalloDeEjecucion("a record of more than 10001 lines");
            grupo_.push_back(linea);
            finDeGrupo_ = linea.inicio + linea.largo + (linea.conCrLf ? 2 : 1);
        }
        TerminarGrupo();
        return true;
    }

    long Cambios() const { return cambios_; }

private:
    bool EmpiezaGrupo(std::string_view linea) const {
        return deSesion_ ? EsInicioDeTransaccion(linea) : ClaveDeRegistro(linea) != clave_;
    }

    void Recordar(std::string_view linea) { clave_ = deSesion_ ? Recortar(Columnas(linea, 46, 177)) : ClaveDeRegistro(linea); }

    bool SeProcesa() const {
        if (deSesion_) return !reemplazo_.transaccion || *reemplazo_.transaccion == clave_;
        return Columnas(clave_, 11, 20) != "0000000000";  // not the definitions
    }

    // Writes the group out, changed where it is due, and lets it go.
    void TerminarGrupo() {
        if (SeProcesa() && CumpleCondiciones()) AplicarConversion();
        if (cambiadas_.empty() && Intacto()) {
            salida_(lector_.DesdeAncla(finDeGrupo_));
        } else {
            auto cambiada = cambiadas_.begin();
            for (std::size_t i = 0; i < grupo_.size(); ++i) {
                const bool esCambiada = cambiada != cambiadas_.end() && cambiada->first == i;
                salida_(esCambiada ? std::string_view(cambiada++->second) : lector_.Texto(grupo_[i]));
                salida_("\r\n");
            }
        }
        cambiadas_.clear();
        grupo_.clear();
        lector_.MoverAncla(finDeGrupo_);
        finDeGrupo_ = 0;
    }

    bool Intacto() const {
        for (const auto& linea : grupo_) {
            if (!linea.conCrLf) return false;
        }
        return true;
    }

    bool CumpleCondiciones() const {
        for (std::size_t i = 0; i < condiciones_.size(); ++i) {
            if (!Chequeo(condiciones_[i], reemplazo_.condiciones[i])) return false;
        }
        return true;
    }

    bool Chequeo(const Campo& campo, const CondicionDeDatos& condicion) const {
        if (campo.SinNombre()) return true;
        const std::string buscado(Recortar(condicion.valor));
        bool aparece = false;
        bool siempre = true;
        bool algunaVez = false;
        Campo::Lugar lugar{};
        for (const auto& linea : grupo_) {
            const auto texto = lector_.Texto(linea);
            if (!campo.Esta(texto, lugar)) continue;
            aparece = true;
            const std::string valor = Mayusculas(Recortar(campo.Valor(texto, lugar)));
            const bool pasa = condicion.igual ? valor == buscado : Contiene(valor, buscado);
            (pasa ? algunaVez : siempre) = pasa;
        }
        return (aparece && siempre) || (algunaVez && reemplazo_.unaVez);
    }

    void AplicarConversion() {
        Campo::Lugar lugar{};
        for (std::size_t i = 0; i < grupo_.size(); ++i) {
            const auto linea = lector_.Texto(grupo_[i]);
            if (!campo_.Esta(linea, lugar)) continue;
            const auto valor = campo_.Valor(linea, lugar);
            if (reemplazo_.modo != ModoDeReemplazo::Cualquiera && !Contiene(Mayusculas(Recortar(valor)), valorViejo_)) continue;
            const std::string cambiado =
                reemplazo_.modo == ModoDeReemplazo::Parte ? ReemplazarSinCaja(valor, valorViejo_, valorNuevo_) : valorNuevo_;
            cambiadas_.emplace_back(i, deSesion_ ? EnSesion(linea, cambiado) : EnTabla(linea, lugar, cambiado));
            ++cambios_;
        }
    }

    static std::string EnSesion(std::string_view linea, const std::string& valor) {
        return AlAncho(std::string(linea.substr(0, columnaDeValor - 1)), columnaDeValor - 1) + valor;
    }

    static std::string EnTabla(std::string_view linea, const Campo::Lugar& lugar, const std::string& valor) {
        const auto antes = static_cast<std::size_t>(lugar.posicion + columnaDeDatos - 1);
        const auto ancho = static_cast<std::size_t>(lugar.ancho);
        std::string cambiada = AlAncho(std::string(linea.substr(0, antes)), antes) + AlAncho(valor, ancho);
        if (linea.size() > antes + ancho) cambiada.append(linea.substr(antes + ancho));
        return cambiada;
    }

    LectorDeLineas& lector_;
    const Salida& salida_;
    const Reemplazo& reemplazo_;
    bool deSesion_;
    Campo campo_;
    std::array<Campo, 3> condiciones_;
    std::string valorNuevo_;
    std::string valorViejo_;
    std::string clave_;  // transaction or record of the group
    std::vector<LectorDeLineas::Linea> grupo_;
    std::vector<std::pair<std::size_t, std::string>> cambiadas_;  // lines of the group by number
    std::size_t finDeGrupo_ = 0;
    long cambios_ = 0;
};

void InformarCambios(long cambios, const TextosIdioma& textos, Vista& vista) {
    if (cambios == 1) {
        vista.Informar(Componer(textos, {359}));
    } else {
        vista.Informar(Componer(textos, {std::to_string(cambios), " ", 360}));
    }
}

}  // namespace

std::optional<long> CopiarReemplazando(ArchivoAbierto& archivo, const JuegoDeDatos& datos, const Reemplazo& reemplazo,
                                       const Salida& salida, const Progreso& progreso) {
    LectorDeLineas lector(archivo);
    Pasada pasada(lector, salida, datos, reemplazo);
    if (!pasada.Correr(progreso)) return std::nullopt;
    return pasada.Cambios();
}

bool ReemplazarValores(const std::filesystem::path& ruta, JuegoDeDatos& datos, const Reemplazo& reemplazo,
                       const TextosIdioma& textos, Vista& vista, const Progreso& progreso) {
    if (EstaEnBlanco(reemplazo.campo)) return false;
    try {
        if (Mayusculas(ruta.string()).ends_with(".TMP")) throw FalloDeArchivo("The name is that of the work file", ruta);
        auto archivo = ArchivoBloqueado::Abrir(ruta);
        if (archivo.Identidad() != datos.identidad) throw FalloDeArchivo(CausaDeFallo::Cambiado, ruta);
        ArchivoNuevo nuevo(ruta, ".TMP", &archivo);
        std::optional<long> cambios;
        {
            const ConPunteroOcupado puntero(vista);
            cambios = CopiarReemplazando(
                archivo, datos, reemplazo, [&nuevo](std::string_view texto) { nuevo.Escribir(texto); }, progreso);
        }
        if (!cambios) return false;
        InformarCambios(*cambios, textos, vista);
        if (*cambios == 0) return true;
        nuevo.LlevarAlDisco();
        if (vista.Preguntar(Componer(textos, {361}), Botones::SiNo) != Respuesta::Si) return false;
        nuevo.PonerEnSuLugar(datos.identidad);
        datos.identidad = nuevo.Identidad();
        return true;
    } catch (const std::exception& fallo) {
        vista.Advertir(SobreArchivo(ConDetalle(Componer(textos, {328}), fallo), ruta));
        return false;
    }
}

}  // namespace qor
