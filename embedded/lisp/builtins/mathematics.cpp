// Roots, powers, angles (in radians), and plane geometry with points as lists of two or three numbers.
#include "embedded/lisp/builtins/builtins.h"

#include <cmath>
#include <numbers>

namespace drafta::lisp {

namespace {

template <double (*function)(double)>
Value unary(Machine&, Arguments arguments) {
    return Value::real(function(numberArgument(arguments[0])));
}

Value squareRoot(Machine&, Arguments arguments) {
    const double number = numberArgument(arguments[0]);
    if (number < 0)
        throw LispError(u"the root of a negative number");
    return Value::real(std::sqrt(number));
}

Value logarithm(Machine&, Arguments arguments) {
    const double number = numberArgument(arguments[0]);
    if (number <= 0)
        throw LispError(u"the logarithm of a number that is not positive");
    return Value::real(std::log(number));
}

/// An integer when base and exponent are integers and 32 bits hold it.
Value power(Machine&, Arguments arguments) {
    if (numberArgument(arguments[0]) == 0 && numberArgument(arguments[1]) < 0)
        throw LispError(u"divide by zero");
    const double result = std::pow(numberArgument(arguments[0]), numberArgument(arguments[1]));
    const bool whole = arguments[0].isInteger() && arguments[1].isInteger() && arguments[1].asInteger() >= 0;
    if (whole && result >= -2147483648.0 && result <= 2147483647.0)
        return Value::integer(static_cast<std::int32_t>(result));
    return Value::real(result);
}

Value arcTangent(Machine&, Arguments arguments) {
    const double a = numberArgument(arguments[0]);
    return Value::real(arguments.size() == 2 ? std::atan2(a, numberArgument(arguments[1])) : std::atan(a));
}

Value toReal(Machine&, Arguments arguments) {
    return Value::real(numberArgument(arguments[0]));
}

struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};

Point pointArgument(Value value) {
    const Value behind = listArgument(value).cdr();
    Point point{numberArgument(value.car()), numberArgument(behind.car()), 0};
    if (behind.cdr().isCons())
        point.z = numberArgument(behind.cdr().car());
    return point;
}

Value distance(Machine&, Arguments arguments) {
    const Point a = pointArgument(arguments[0]);
    const Point b = pointArgument(arguments[1]);
    return Value::real(std::hypot(a.x - b.x, a.y - b.y, a.z - b.z));
}

/// Of the line from the first point to the second, from 0 to less than a full turn.
Value angle(Machine&, Arguments arguments) {
    const Point a = pointArgument(arguments[0]);
    const Point b = pointArgument(arguments[1]);
    const double turn = std::atan2(b.y - a.y, b.x - a.x);
    return Value::real(turn < 0 ? turn + 2 * std::numbers::pi : turn);
}

Value polar(Machine& machine, Arguments arguments) {
    const Point from = pointArgument(arguments[0]);
    const double direction = numberArgument(arguments[1]);
    const double length = numberArgument(arguments[2]);
    const bool isFlat = !arguments[0].cdr().cdr().isCons();
    const Value rest = isFlat ? Value() : machine.cons(Value::real(from.z), {});
    const Value y = Value::real(from.y + length * std::sin(direction));
    return machine.cons(Value::real(from.x + length * std::cos(direction)), machine.cons(y, rest));
}

constexpr Definition definitions[] = {
    {u"sqrt", 1, 1, squareRoot},
    {u"expt", 2, 2, power},
    {u"exp", 1, 1, unary<std::exp>},
    {u"log", 1, 1, logarithm},
    {u"sin", 1, 1, unary<std::sin>},
    {u"cos", 1, 1, unary<std::cos>},
    {u"atan", 1, 2, arcTangent},
    {u"float", 1, 1, toReal},
    {u"distance", 2, 2, distance},
    {u"angle", 2, 2, angle},
    {u"polar", 3, 3, polar},
};

} // namespace

void defineMathematics(Machine& machine) {
    defineAll(machine, definitions);
}

} // namespace drafta::lisp
