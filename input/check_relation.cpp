#include "input/check_relation.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

#include "base/failure.h"
#include "base/text.h"

namespace qor {

namespace {

// Between the values of a key: no value has it.
constexpr char entreValores = '\n';

// In front of them stands the number of their set.
constexpr std::size_t largoDeJuego = 2;
std::size_t JuegoDe(std::string_view clave) {
    return static_cast<unsigned char>(clave[0]) * 256U + static_cast<unsigned char>(clave[1]);
}

std::uint64_t Resumen(std::string_view texto) { return std::hash<std::string_view>{}(texto); }

// A cell holds the number, from 1, and above it what of the hash does not tell the cell already.
constexpr int bitsDeNumero = 32;
constexpr std::uint64_t mascaraDeNumero = (std::uint64_t{1} << bitsDeNumero) - 1;

}  // namespace

void TablaDeTextos::Ampliar() {
    const std::vector<std::uint64_t> viejas = std::exchange(celdas_, {});
    celdas_.assign(std::max<std::size_t>(1024, viejas.size() * 2), 0);
    const auto mascara = celdas_.size() - 1;
    for (const auto vieja : viejas) {
        if (vieja == 0) continue;
        auto celda = Resumen(Texto(static_cast<std::uint32_t>((vieja & mascaraDeNumero) - 1))) & mascara;
        while (celdas_[celda] != 0) celda = (celda + 1) & mascara;
        celdas_[celda] = vieja;
    }
}

std::string_view TablaDeTextos::Texto(std::uint32_t numero) const {
    const auto desde = numero == 0 ? 0 : fines_[numero - 1];
    return {textos_.data() + desde, fines_[numero] - desde};
}

TablaDeTextos::Sitio TablaDeTextos::Poner(std::string_view texto) {
    // Records of one order mostly stand together.
    if (ultimo_ < fines_.size() && Texto(ultimo_) == texto) return {ultimo_, false};
    if (fines_.size() * 3 >= celdas_.size() * 2) Ampliar();
    const std::uint64_t resumen = Resumen(texto);
    const std::uint64_t alto = resumen & ~mascaraDeNumero;
    const auto mascara = celdas_.size() - 1;
    auto celda = static_cast<std::size_t>(resumen) & mascara;
    for (; celdas_[celda] != 0; celda = (celda + 1) & mascara) {
        if ((celdas_[celda] & ~mascaraDeNumero) != alto) continue;
        const auto numero = static_cast<std::uint32_t>((celdas_[celda] & mascaraDeNumero) - 1);
        if (Texto(numero) == texto) return {ultimo_ = numero, false};
    }
    if (fines_.size() >= mascaraDeNumero - 1) throw FalloDeEjecucion("there are too many keys");
    ultimo_ = static_cast<std::uint32_t>(fines_.size());
    textos_.insert(textos_.end(), texto.begin(), texto.end());
    fines_.push_back(textos_.size());
    celdas_[celda] = alto | (ultimo_ + std::uint64_t{1});
    return {ultimo_, true};
}

RelacionDeRegistros::RelacionDeRegistros(const RevisorDeLineas& revisor, std::size_t archivos)
    : revisor_(revisor), archivos_(archivos) {
    const auto& diseno = revisor.Diseno();
    const auto& clases = diseno.Clases();
    todos_ = archivos == diseno.Archivos().size();
    claves_.resize(clases.size());
    bool sinClave = false;
    for (std::size_t clase = 1; clase < clases.size(); ++clase) {
        auto& claves = claves_[clase];
        int insegura = -1;
        const char* motivo = "it has no key field";
        for (std::size_t campo = 0; campo < clases[clase].campos.size(); ++campo) {
            const auto& este = clases[clase].campos[campo];
            if (!este.clave) continue;
            const int enPrincipal = clases.front().BuscarFila(este.fila);
            if (insegura < 0 && (enPrincipal < 0 || este.cambiante)) {
                insegura = static_cast<int>(campo);
                motivo = enPrincipal < 0
                             ? "the main record has not this key"
                             : "a conversion of the document names this key, and may change it before the report compares it";
            }
            claves.enPartida.push_back(campo);
            claves.enPrincipal.push_back(static_cast<std::size_t>(enPrincipal));
        }
        sinClave = sinClave || claves.enPartida.empty();
        claves.hay = insegura < 0 && !claves.enPartida.empty();
        if (!claves.hay) {
            AgregarSinComparar(static_cast<int>(clase), insegura, motivo);
            continue;
        }
        claves.juego = 0;
        while (claves.juego < primeras_.size() && claves_[primeras_[claves.juego]].enPrincipal != claves.enPrincipal) {
            ++claves.juego;
        }
        if (claves.juego == primeras_.size()) primeras_.push_back(clase);
    }
    if (diseno.ArchivoUnico() && sinClave) {
        forma_ = Forma::PorPosicion;
        sinComparar_.clear();
    } else if (!primeras_.empty()) {
        forma_ = Forma::PorClaves;
    }
}

std::uint32_t RelacionDeRegistros::Tomar(int archivo, int clase, std::uint64_t numero, std::string_view linea,
                                         std::vector<HallazgoDeDatos>& hallazgos) {
    if (clase < 0 && forma_ != Forma::PorPosicion) return sinUnidad;
    switch (forma_) {
        case Forma::Ninguna: return sinUnidad;
        case Forma::PorPosicion: return TomarPorPosicion(archivo, clase, numero, hallazgos);
        case Forma::PorClaves: break;
    }
    if (clase == 0) return TomarPrincipal(numero, linea, hallazgos);
    const auto& claves = claves_[static_cast<std::size_t>(clase)];
    return claves.hay ? TomarPartida({0, archivo, clase, numero}, claves, linea, hallazgos) : sinUnidad;
}

std::uint32_t RelacionDeRegistros::TomarPorPosicion(int archivo, int clase, std::uint64_t numero,
                                                    std::vector<HallazgoDeDatos>& hallazgos) {
    if (clase == 0) {
        if (principal_ != 0 && !conPartidas_) DecirSinPartidas(principal_, hallazgos);
        principal_ = numero;
        conPartidas_ = false;
        return ++unidad_;
    }
    if (clase < 0) return unidad_;
    conPartidas_ = true;
    if (unidad_ == 0) {
        auto& hallazgo = hallazgos.emplace_back();
        hallazgo.clase = HallazgoDeEntrada::SinPrincipal;
        hallazgo.archivo = archivo;
        hallazgo.linea = numero;
        hallazgo.texto = "no main record stands before this record of a step-loop";
    }
    return unidad_;
}

TablaDeTextos::Sitio RelacionDeRegistros::PonerClave(std::size_t juego, int clase, const std::vector<std::size_t>& campos,
                                                     std::string_view linea) {
    clave_ = {static_cast<char>(juego / 256), static_cast<char>(juego % 256)};
    for (const auto campo : campos) {
        clave_ += SinBlancosDetras(revisor_.ValorDe(clase, linea, campo));
        clave_ += entreValores;
    }
    const auto sitio = tabla_.Poner(clave_);
    if (sitio.nuevo) nodos_.emplace_back().padre = sitio.numero;
    return sitio;
}

std::uint32_t RelacionDeRegistros::TomarPrincipal(std::uint64_t numero, std::string_view linea,
                                                  std::vector<HallazgoDeDatos>& hallazgos) {
    std::uint32_t primero = sinUnidad;
    bool doble = false;
    for (std::size_t juego = 0; juego < primeras_.size(); ++juego) {
        const auto clase = primeras_[juego];
        const auto nodo = PonerClave(juego, 0, claves_[clase].enPrincipal, linea).numero;
        if (primero == sinUnidad) {
            primero = nodo;
        } else {
            Unir(primero, nodo);
        }
        auto& principal = nodos_[nodo].principal;
        if (principal == 0) {
            principal = numero;
        } else if (!doble) {
            doble = true;
            const auto otra = std::to_string(principal);
            hallazgos.push_back(DeClave(HallazgoDeEntrada::ClaveDoble, {nodo, 0, 0, numero}, "line " + otra + " has the same key"));
            hallazgos.back().otraLinea = principal;
        }
    }
    return primero;
}

std::uint32_t RelacionDeRegistros::TomarPartida(const Pendiente& partida, const Claves& claves, std::string_view linea,
                                                std::vector<HallazgoDeDatos>& hallazgos) {
    Pendiente registro = partida;
    registro.nodo = PonerClave(claves.juego, partida.clase, claves.enPartida, linea).numero;
    nodos_[Unidad(registro.nodo)].conPartidas = true;
    if (nodos_[registro.nodo].principal == 0) {
        if (revisor_.Diseno().ArchivoUnico()) {
            pendientes_.push_back(registro);
        } else {
            hallazgos.push_back(DeClave(HallazgoDeEntrada::SinPrincipal, registro, "no main record has the key"));
        }
    }
    return registro.nodo;
}

void RelacionDeRegistros::Terminar(std::vector<HallazgoDeDatos>& hallazgos) {
    std::copy_if(sinComparar_.begin(), sinComparar_.end(), std::back_inserter(hallazgos),
                 [this](const auto& hallazgo) { return static_cast<std::size_t>(hallazgo.archivo) < archivos_; });
    if (forma_ == Forma::PorPosicion && principal_ != 0 && !conPartidas_) DecirSinPartidas(principal_, hallazgos);
    if (forma_ != Forma::PorClaves) return;
    for (const auto& partida : pendientes_) {
        if (nodos_[partida.nodo].principal == 0) {
            hallazgos.push_back(DeClave(HallazgoDeEntrada::SinPrincipal, partida, "no main record has the key"));
        }
    }
    bool todasConClave = true;
    for (std::size_t clase = 1; clase < claves_.size(); ++clase) todasConClave = todasConClave && claves_[clase].hay;
    if (!todos_ || !todasConClave) return;
    for (std::uint32_t nodo = 0; nodo < nodos_.size(); ++nodo) {
        // Each main record has a key of the first set.
        const bool esPrimero = JuegoDe(tabla_.Texto(nodo)) == 0;
        if (esPrimero && nodos_[nodo].principal != 0 && !nodos_[Unidad(nodo)].conPartidas) {
            DecirSinPartidas(nodos_[nodo].principal, hallazgos);
        }
    }
}

std::uint32_t RelacionDeRegistros::Unidad(std::uint32_t nodo) const {
    while (nodos_[nodo].padre != nodo) {
        nodos_[nodo].padre = nodos_[nodos_[nodo].padre].padre;
        nodo = nodos_[nodo].padre;
    }
    return nodo;
}

void RelacionDeRegistros::Unir(std::uint32_t uno, std::uint32_t otro) {
    uno = Unidad(uno);
    otro = Unidad(otro);
    if (uno == otro) return;
    nodos_[otro].padre = uno;
    nodos_[uno].conPartidas = nodos_[uno].conPartidas || nodos_[otro].conPartidas;
}

void RelacionDeRegistros::AgregarSinComparar(int clase, int campo, const char* motivo) {
    const auto& diseno = revisor_.Diseno();
    auto& hallazgo = sinComparar_.emplace_back();
    hallazgo.clase = HallazgoDeEntrada::SinComparar;
    hallazgo.archivo = diseno.ArchivoUnico() ? 0 : clase;
    if (campo >= 0) {
        const auto& este = diseno.Clases()[static_cast<std::size_t>(clase)].campos[static_cast<std::size_t>(campo)];
        hallazgo.fila = este.fila;
        hallazgo.campo = este.nombre;
    }
    hallazgo.texto = "the records of step-loop " + std::to_string(clase) + " are not compared with their main records: " + motivo;
}

void RelacionDeRegistros::DecirSinPartidas(std::uint64_t numero, std::vector<HallazgoDeDatos>& hallazgos) {
    auto& hallazgo = hallazgos.emplace_back();
    hallazgo.clase = HallazgoDeEntrada::SinPartidas;
    hallazgo.linea = numero;
    hallazgo.texto = "no record of a step-loop belongs to this main record";
}

// A finding about the key of a record; where it has several fields, all values stand in the text.
HallazgoDeDatos RelacionDeRegistros::DeClave(HallazgoDeEntrada falta, const Pendiente& registro, std::string texto) const {
    auto valores = tabla_.Texto(registro.nodo);
    const auto& claves = claves_[primeras_[JuegoDe(valores)]];
    valores.remove_prefix(largoDeJuego);
    const auto& lugares = registro.clase == 0 ? claves.enPrincipal : claves_[static_cast<std::size_t>(registro.clase)].enPartida;
    const auto& campo = revisor_.Diseno().Clases()[static_cast<std::size_t>(registro.clase)].campos[lugares.front()];
    HallazgoDeDatos hallazgo;
    hallazgo.clase = falta;
    hallazgo.archivo = registro.archivo;
    hallazgo.linea = registro.numero;
    hallazgo.columna = (revisor_.Diseno().PorTabuladores() ? lugares.front() : campo.columna) + 1;
    hallazgo.fila = campo.fila;
    hallazgo.campo = campo.nombre;
    hallazgo.valor = ValorMostrado(AntesDe(valores, entreValores));
    hallazgo.texto = std::move(texto);
    if (lugares.size() > 1) {
        valores.remove_suffix(1);
        hallazgo.texto += " (" + ReemplazarTodo(ValorMostrado(valores), "\n", ", ") + ")";
    }
    return hallazgo;
}

}  // namespace qor
