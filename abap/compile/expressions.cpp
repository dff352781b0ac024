#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"

// Calculations and conditions.
namespace qor::abap {

namespace {

class LectorDeExpresion {
public:
    LectorDeExpresion(Compilador& compilador, Lectura& l) : compilador_(compilador), l_(l) {}

    std::unique_ptr<Expresion> Suma() {
        auto a = Producto();
        while (l_.EsAlguna({"+"_c, "-"_c})) {
            const char operador = l_.Tomada().texto.front();
            a = Operacion(operador, std::move(a), Producto());
        }
        return a;
    }

private:
    std::unique_ptr<Expresion> Operacion(char operador, std::unique_ptr<Expresion> a, std::unique_ptr<Expresion> b) {
        if (++operaciones_ > operacionesMaximas) l_.Fallar("the calculation is too long");
        auto expresion = std::make_unique<Expresion>();
        expresion->clase = Expresion::Clase::Operacion;
        expresion->operador = operador;
        expresion->a = std::move(a);
        expresion->b = std::move(b);
        return expresion;
    }

    std::unique_ptr<Expresion> Producto() {
        auto a = Potencia();
        while (l_.EsAlguna({"*"_c, "/"_c, "DIV"_c, "MOD"_c})) {
            const Palabra& palabra = l_.Tomada();
            char operador = palabra.texto.front();
            if (palabra.clave == "DIV"_c) operador = 'D';
            if (palabra.clave == "MOD"_c) operador = 'M';
            a = Operacion(operador, std::move(a), Potencia());
        }
        return a;
    }

    std::unique_ptr<Expresion> Potencia() {
        auto a = Primario();
        if (!l_.Toma("**"_c)) return a;
        if (++hondura_ > honduraMaxima) l_.Fallar("too many brackets");
        auto b = Potencia();
        --hondura_;
        return Operacion('^', std::move(a), std::move(b));
    }

    std::unique_ptr<Expresion> Primario() {
        if (++hondura_ > honduraMaxima) l_.Fallar("too many brackets");
        auto expresion = std::make_unique<Expresion>();
        if (l_.Toma("("_c)) {
            expresion = Suma();
            l_.Exige(")"_c, ")");
        } else if (l_.Es("-"_c) || l_.Es("+"_c)) {
            const bool menos = l_.Tomada().texto == "-";
            expresion = Primario();
            if (menos) {
                auto negada = std::make_unique<Expresion>();
                negada->clase = Expresion::Clase::Negacion;
                negada->a = std::move(expresion);
                expresion = std::move(negada);
            }
        } else if (!Funcion(*expresion)) {
            expresion->campo = compilador_.LeerOperando(l_);
        }
        --hondura_;
        return expresion;
    }

    // NAME( argument ): the bracket stands at the name or behind it.
    bool Funcion(Expresion& expresion) {
        if (!l_.Hay()) return false;
        std::string_view nombre = l_.Actual().texto;
        const bool pegado = nombre.size() > 1 && nombre.back() == '(';
        if (pegado)
            nombre.remove_suffix(1);
        else if (!l_.Es("("_c, 1))
            return false;
        switch (ClaveDe(nombre)) {
            case "STRLEN"_c: expresion.clase = Expresion::Clase::LargoDeTexto; break;
            case "ABS"_c: expresion.funcion = FuncionNumerica::Abs; break;
            case "SIGN"_c: expresion.funcion = FuncionNumerica::Sign; break;
            case "CEIL"_c: expresion.funcion = FuncionNumerica::Ceil; break;
            case "FLOOR"_c: expresion.funcion = FuncionNumerica::Floor; break;
            case "TRUNC"_c: expresion.funcion = FuncionNumerica::Trunc; break;
            case "FRAC"_c: expresion.funcion = FuncionNumerica::Frac; break;
            default:
                if (!pegado) return false;
                l_.Fallar(std::string(nombre) + " is no function that is known here");
        }
        l_.Avanzar(pegado ? 1 : 2);
        if (expresion.clase == Expresion::Clase::LargoDeTexto) {
            expresion.campo = compilador_.LeerOperando(l_);
        } else {
            expresion.clase = Expresion::Clase::Funcion;
            expresion.a = Suma();
        }
        l_.Exige(")"_c, ")");
        return true;
    }

    static constexpr int honduraMaxima = 200;
    static constexpr int operacionesMaximas = 1000;  // their tree is walked by recursion

    Compilador& compilador_;
    Lectura& l_;
    int hondura_ = 0;
    int operaciones_ = 0;
};

// ---- Conditions ----

class Comparacion : public Condicion {
public:
    Comparacion(Relacion relacion, Operando a, Operando b) : relacion_(relacion), a_(std::move(a)), b_(std::move(b)) {}

    bool Vale(Maquina& maquina) const override {
        const Campo a = maquina.Resolver(a_);
        const Campo b = maquina.Resolver(b_);
        std::int32_t fdpos = maquina.Fdpos();
        const bool vale = abap::Vale(relacion_, a, b, fdpos);
        if (relacion_ > Relacion::GE) maquina.PonerFdpos(fdpos);
        return vale;
    }

private:
    Relacion relacion_;
    Operando a_;
    Operando b_;
};

class ComparacionDeNumeros : public Condicion {
public:
    ComparacionDeNumeros(Relacion relacion, std::unique_ptr<Expresion> a, std::unique_ptr<Expresion> b)
        : relacion_(relacion), a_(std::move(a)), b_(std::move(b)) {}

    bool Vale(Maquina& maquina) const override {
        const Calculo calculo = Mayor(CalculoDe(maquina, *a_), CalculoDe(maquina, *b_));
        const int orden = CompararNumeros(Valor(maquina, *a_, calculo), Valor(maquina, *b_, calculo));
        switch (relacion_) {
            case Relacion::EQ: return orden == 0;
            case Relacion::NE: return orden != 0;
            case Relacion::LT: return orden < 0;
            case Relacion::LE: return orden <= 0;
            case Relacion::GT: return orden > 0;
            default: return orden >= 0;
        }
    }

private:
    Relacion relacion_;
    std::unique_ptr<Expresion> a_;
    std::unique_ptr<Expresion> b_;
};

class Inicial : public Condicion {
public:
    explicit Inicial(Operando campo) : campo_(std::move(campo)) {}
    bool Vale(Maquina& maquina) const override { return EsInicial(maquina.Resolver(campo_), maquina.EstructuraDe(campo_)); }

private:
    Operando campo_;
};

class TablaVacia : public Condicion {
public:
    explicit TablaVacia(OperandoDeTabla tabla) : tabla_(std::move(tabla)) {}
    bool Vale(Maquina& maquina) const override { return maquina.Tabla(tabla_).Filas() == 0; }

private:
    OperandoDeTabla tabla_;
};

class Asignado : public Condicion {
public:
    explicit Asignado(Operando simbolo) : simbolo_(std::move(simbolo)) {}
    bool Vale(Maquina& maquina) const override { return maquina.EnlaceDe(simbolo_).asignado; }

private:
    Operando simbolo_;
};

class Entre : public Condicion {
public:
    Entre(Operando valor, Operando bajo, Operando alto)
        : valor_(std::move(valor)), bajo_(std::move(bajo)), alto_(std::move(alto)) {}
    bool Vale(Maquina& maquina) const override {
        const Campo valor = maquina.Resolver(valor_);
        return Comparar(valor, maquina.Resolver(bajo_)) >= 0 && Comparar(valor, maquina.Resolver(alto_)) <= 0;
    }

private:
    Operando valor_;
    Operando bajo_;
    Operando alto_;
};

class EnRango : public Condicion {
public:
    EnRango(Operando valor, OperandoDeTabla rango) : valor_(std::move(valor)), rango_(std::move(rango)) {}
    bool Vale(Maquina& maquina) const override { return EstaEnRango(maquina.Resolver(valor_), maquina.Tabla(rango_)); }

private:
    Operando valor_;
    OperandoDeTabla rango_;
};

class Negada : public Condicion {
public:
    explicit Negada(std::unique_ptr<Condicion> condicion) : condicion_(std::move(condicion)) {}
    bool Vale(Maquina& maquina) const override { return !condicion_->Vale(maquina); }

private:
    std::unique_ptr<Condicion> condicion_;
};

// AND, or OR.
class Enlazadas : public Condicion {
public:
    Enlazadas(bool todas, std::vector<std::unique_ptr<Condicion>> partes) : todas_(todas), partes_(std::move(partes)) {}
    bool Vale(Maquina& maquina) const override {
        for (const auto& parte : partes_) {
            if (parte->Vale(maquina) != todas_) return !todas_;
        }
        return todas_;
    }

private:
    bool todas_;
    std::vector<std::unique_ptr<Condicion>> partes_;
};

class LectorDeCondicion {
public:
    LectorDeCondicion(Compilador& compilador, Lectura& l) : compilador_(compilador), l_(l) {}

    std::unique_ptr<Condicion> Leer() { return Serie(false); }

private:
    std::unique_ptr<Condicion> Serie(bool todas) {
        std::vector<std::unique_ptr<Condicion>> partes;
        do {
            partes.push_back(todas ? Termino() : Serie(true));
        } while (l_.Toma(todas ? "AND"_c : "OR"_c));
        if (partes.size() == 1) return std::move(partes.front());
        return std::make_unique<Enlazadas>(todas, std::move(partes));
    }

    std::unique_ptr<Condicion> Termino() {
        if (++hondura_ > honduraMaxima) l_.Fallar("too many brackets");
        auto condicion = l_.Toma("NOT"_c) ? std::make_unique<Negada>(Termino()) : Simple();
        --hondura_;
        return condicion;
    }

    std::unique_ptr<Condicion> Simple() {
        if (l_.Es("("_c)) {
            // A condition in brackets, or an expression that begins with a bracket.
            const std::size_t aqui = l_.Lugar();
            const int hondura = hondura_;
            try {
                l_.Avanzar();
                auto condicion = Leer();
                l_.Exige(")"_c, ")");
                return condicion;
            } catch (const FallaDeSentencia&) {
                l_.Volver(aqui);
                hondura_ = hondura;
                return Comparado();
            }
        }
        return Comparado();
    }

    std::unique_ptr<Condicion> DeTabla() {
        if (!l_.Hay() || compilador_.BuscarOperando(l_.Actual())) return nullptr;
        auto tabla = compilador_.BuscarTabla(l_.Actual());
        if (!tabla) return nullptr;
        l_.Avanzar();
        l_.Exige("IS"_c, "IS INITIAL");
        const bool no = l_.Toma("NOT"_c);
        l_.Exige("INITIAL"_c, "INITIAL");
        return Segun(no, std::make_unique<TablaVacia>(*tabla));
    }

    static std::unique_ptr<Condicion> Segun(bool no, std::unique_ptr<Condicion> condicion) {
        if (no) return std::make_unique<Negada>(std::move(condicion));
        return condicion;
    }

    std::unique_ptr<Condicion> Comparado() {
        if (auto condicion = DeTabla()) return condicion;
        auto a = compilador_.LeerExpresion(l_);
        if (l_.Toma("IS"_c)) return TrasIS(*a);
        const bool no = l_.Toma("NOT"_c);
        if (l_.Toma("BETWEEN"_c)) {
            Operando bajo = compilador_.LeerOperando(l_);
            l_.Exige("AND"_c, "AND");
            return Segun(no, std::make_unique<Entre>(Campo(*a), std::move(bajo), compilador_.LeerOperando(l_)));
        }
        if (l_.Toma("IN"_c)) {
            auto rango = compilador_.LeerRango(l_);
            return Segun(no, std::make_unique<EnRango>(Campo(*a), std::move(rango)));
        }
        const auto relacion = compilador_.TomarRelacion(l_);
        if (!relacion) l_.Fallar("a comparison was expected");
        auto b = compilador_.LeerExpresion(l_);
        if (a->EsCampo() && b->EsCampo()) return Segun(no, std::make_unique<Comparacion>(*relacion, a->campo, b->campo));
        if (*relacion > Relacion::GE) l_.Fallar("a calculation is compared with a comparison of texts");
        return Segun(no, std::make_unique<ComparacionDeNumeros>(*relacion, std::move(a), std::move(b)));
    }

    std::unique_ptr<Condicion> TrasIS(const Expresion& a) {
        const bool no = l_.Toma("NOT"_c);
        if (l_.Toma("ASSIGNED"_c)) return Segun(no, std::make_unique<Asignado>(Campo(a)));
        l_.Exige("INITIAL"_c, "INITIAL");
        return Segun(no, std::make_unique<Inicial>(Campo(a)));
    }

    Operando Campo(const Expresion& expresion) {
        if (!expresion.EsCampo()) l_.Fallar("a field was expected in front of this comparison");
        return expresion.campo;
    }

    static constexpr int honduraMaxima = 200;

    Compilador& compilador_;
    Lectura& l_;
    int hondura_ = 0;
};

}  // namespace

std::unique_ptr<Expresion> Compilador::LeerExpresion(Lectura& l) { return LectorDeExpresion(*this, l).Suma(); }

std::unique_ptr<Condicion> Compilador::LeerCondicion(Lectura& l) { return LectorDeCondicion(*this, l).Leer(); }

OperandoDeTabla Compilador::LeerRango(Lectura& l) {
    const Palabra& palabra = l.Actual();
    OperandoDeTabla rango = LeerTabla(l);
    if (rango.linea.estructura == nullptr || rango.linea.estructura->componentes.size() != 4)
        throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is no RANGES table"};
    return rango;
}

std::optional<Relacion> Compilador::TomarRelacion(Lectura& l) {
    if (!l.Hay()) return {};
    const auto tomar = [&l](Relacion relacion) {
        l.Avanzar();
        return relacion;
    };
    switch (l.Actual().clave) {
        case "="_c:
        case "EQ"_c: return tomar(Relacion::EQ);
        case "<>"_c:
        case "><"_c:
        case "NE"_c: return tomar(Relacion::NE);
        case "<"_c:
        case "LT"_c: return tomar(Relacion::LT);
        case "<="_c:
        case "=<"_c:
        case "LE"_c: return tomar(Relacion::LE);
        case ">"_c:
        case "GT"_c: return tomar(Relacion::GT);
        case ">="_c:
        case "=>"_c:
        case "GE"_c: return tomar(Relacion::GE);
        case "CO"_c: return tomar(Relacion::CO);
        case "CN"_c: return tomar(Relacion::CN);
        case "CA"_c: return tomar(Relacion::CA);
        case "NA"_c: return tomar(Relacion::NA);
        case "CS"_c: return tomar(Relacion::CS);
        case "NS"_c: return tomar(Relacion::NS);
        case "CP"_c: return tomar(Relacion::CP);
        case "NP"_c: return tomar(Relacion::NP);
        default: return {};
    }
}

}  // namespace qor::abap
