// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/additions.h"
#include "tables/mapping.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <set>

namespace comfortics::tables {

using nlohmann::ordered_json;

namespace {

constexpr const char* kKind = "table mapping";
constexpr int kVersion = 1;
constexpr std::size_t kLongest = 4096; // text [bytes]
constexpr std::size_t kMost = 16384;   // columns, gaps
constexpr int kDeepest = 8;
constexpr std::uint64_t kLastLine = 1'000'000;
constexpr const char* kFixed = "fixed width";

class Damage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

std::string textAt(const ordered_json& object, const char* name)
{
    const auto found = object.find(name);
    if (found == object.end())
        return {};
    if (!found->is_string() || found->get_ref<const std::string&>().size() > kLongest)
        throw Damage("\"" + std::string(name) + "\" is not what it should be");
    return found->get<std::string>();
}

double positiveAt(const ordered_json& object, const char* name)
{
    const auto found = object.find(name);
    if (found == object.end())
        return 0;
    const double value = found->is_number() ? found->get<double>() : 0;
    if (!(value > 0) || !std::isfinite(value))
        throw Damage("\"" + std::string(name) + "\" is no number above 0");
    return value;
}

std::optional<std::size_t> lineAt(const ordered_json& object, const char* name)
{
    const auto found = object.find(name);
    if (found == object.end())
        return std::nullopt;
    if (!found->is_number_unsigned() || found->get<std::uint64_t>() > kLastLine)
        throw Damage("\"" + std::string(name) + "\" is no number of a line");
    return found->get<std::size_t>();
}

std::vector<std::string> textsAt(const ordered_json& object, const char* name)
{
    std::vector<std::string> texts;
    const auto found = object.find(name);
    if (found == object.end())
        return texts;
    if (!found->is_array() || found->size() > kMost)
        throw Damage("\"" + std::string(name) + "\" is no list");
    for (const ordered_json& one : *found) {
        if (!one.is_string() || one.get_ref<const std::string&>().size() > kLongest)
            throw Damage("\"" + std::string(name) + "\" holds what is no text");
        texts.push_back(one.get<std::string>());
    }
    return texts;
}

template <class Value, class Read>
Value oneOf(const std::string& text, const char* name, Read read)
{
    const std::optional<Value> value = read(text);
    if (!value)
        throw Damage("\"" + text + "\" is no " + name);
    return *value;
}

ordered_json shapeJson(const Shape& shape)
{
    ordered_json object = ordered_json::object();
    if (shape.coding)
        object["coding"] = codingName(*shape.coding);
    if (shape.separator)
        object["separator"] = *shape.separator == kFixedWidth ? kFixed : std::string(1, *shape.separator);
    if (shape.decimal)
        object["decimal"] = std::string(1, *shape.decimal);
    if (shape.comment)
        object["comment"] = *shape.comment;
    if (shape.header)
        object["header line"] = *shape.header;
    if (shape.unitLines)
        object["unit lines"] = *shape.unitLines;
    if (shape.dataLine)
        object["data line"] = *shape.dataLine;
    if (!shape.sheet.empty())
        object["sheet"] = shape.sheet;
    return object;
}

Shape readShape(const ordered_json& object)
{
    Shape shape;
    if (!object.is_object())
        throw Damage("\"file\" is not what it should be");
    if (const std::string name = textAt(object, "coding"); !name.empty())
        shape.coding = oneOf<Coding>(name, "coding", codingOfName);
    const auto mark = [](std::string_view marks) {
        return [marks](const std::string& text) -> std::optional<char> {
            return text.size() == 1 && marks.find(text[0]) != std::string_view::npos ? std::optional(text[0])
                                                                                     : std::nullopt;
        };
    };
    if (const std::string text = textAt(object, "separator"); text == kFixed)
        shape.separator = kFixedWidth;
    else if (!text.empty())
        shape.separator = oneOf<char>(text, "separator", mark("\t;,| "));
    if (const std::string text = textAt(object, "decimal"); !text.empty())
        shape.decimal = oneOf<char>(text, "decimal mark", mark(".,"));
    if (object.contains("comment"))
        shape.comment = textAt(object, "comment");
    shape.header = lineAt(object, "header line");
    shape.unitLines = lineAt(object, "unit lines");
    shape.dataLine = lineAt(object, "data line");
    shape.sheet = textAt(object, "sheet");
    return shape;
}

ordered_json columnJson(const ColumnUse& use)
{
    ordered_json object{{"column", use.column}};
    if (use.role == Role::Reading) {
        object["reading"] = infoOf(use.quantity).key;
        object["unit"] = use.unit;
        if (use.height > 0)
            object["height"] = use.height;
        if (use.step > 0)
            object["step"] = use.step;
    } else {
        object["role"] = roleName(use.role);
        if (use.role == Role::Input)
            object["input"] = use.input;
        if (use.role == Role::Input && !use.unit.empty())
            object["unit"] = use.unit;
    }
    if (!use.gaps.empty())
        object["gaps"] = use.gaps;
    if (!use.because.empty())
        object["because"] = use.because;
    if (!use.doubt.empty())
        object["doubt"] = use.doubt;
    return object;
}

ColumnUse readColumn(const ordered_json& object)
{
    if (!object.is_object())
        throw Damage("a column is not what it should be");
    ColumnUse use;
    use.column = textAt(object, "column");
    if (use.column.empty())
        throw Damage("a column has no name");
    const std::string reading = textAt(object, "reading");
    if (!reading.empty()) {
        use.role = Role::Reading;
        use.quantity = oneOf<Quantity>(reading, "reading", quantityOfKey);
        use.unit = textAt(object, "unit");
        use.height = positiveAt(object, "height");
        use.step = positiveAt(object, "step");
        if (!UnitWay::find(use.quantity, use.unit, use.step))
            throw Damage("\"" + use.unit + "\" is no unit of the " + std::string(infoOf(use.quantity).name) +
                         (isDose(use.unit) ? " without a step" : ""));
    } else if (const std::string role = textAt(object, "role"); !role.empty()) {
        use.role = oneOf<Role>(role, "use of a column", roleOfName);
        if (use.role == Role::Reading)
            throw Damage("\"" + use.column + "\" tells not which reading it is");
        if (use.role == Role::Input) {
            use.input = textAt(object, "input");
            const catalogue::InputInfo* const input = catalogue::additionInputOfId(use.input);
            if (input == nullptr)
                throw Damage("\"" + use.input + "\" is no input of a model");
            use.unit = textAt(object, "unit");
            if (const std::string fault = faultOfInputUnit(*input, use.unit); !fault.empty())
                throw Damage(fault);
        }
    }
    use.gaps = textsAt(object, "gaps");
    use.because = textAt(object, "because");
    use.doubt = textAt(object, "doubt");
    return use;
}

Mapping readWhole(const ordered_json& object)
{
    if (!object.is_object() || textAt(object, "comfortics") != kKind)
        throw Damage("it is no mapping of a table");
    const auto version = object.find("version");
    if (version == object.end() || !version->is_number_integer() || version->get<std::int64_t>() < 1)
        throw Damage("it tells no version");
    if (version->get<std::int64_t>() > kVersion)
        throw Damage("it is of a later version of the program");
    Mapping mapping;
    mapping.name = textAt(object, "name");
    mapping.fingerprint = textAt(object, "fingerprint");
    mapping.guessedFingerprint = textAt(object, "guessed fingerprint");
    if (const auto file = object.find("file"); file != object.end())
        mapping.shape = readShape(*file);
    if (const std::string order = textAt(object, "order"); !order.empty())
        mapping.order = oneOf<DateOrder>(order, "order of a date", orderOfName);
    if (const std::string zone = textAt(object, "zone"); !zone.empty())
        mapping.zone = oneOf<int>(zone, "zone of time", readOffset);
    mapping.gaps = textsAt(object, "gaps");
    mapping.doubts = textsAt(object, "doubts");
    const auto columns = object.find("columns");
    if (columns == object.end() || !columns->is_array() || columns->empty() || columns->size() > kMost)
        throw Damage("it has no list of columns");
    std::set<std::string> names;
    std::set<Quantity> quantities;
    std::set<std::string> inputs;
    for (const ordered_json& column : *columns) {
        mapping.columns.push_back(readColumn(column));
        const ColumnUse& use = mapping.columns.back();
        if (!names.insert(use.column).second)
            throw Damage("it has \"" + use.column + "\" twice");
        if (use.role == Role::Reading && !quantities.insert(use.quantity).second)
            throw Damage("it has the " + std::string(infoOf(use.quantity).name) + " twice");
        if (use.role == Role::Input && !inputs.insert(use.input).second)
            throw Damage("it has the input " + use.input + " twice");
    }
    return mapping;
}

std::string zoneText(int minutes)
{
    const std::string text = momentText({0, minutes});
    return text.substr(text.find_last_of("Z+-"));
}

} // namespace

std::string mappingText(const Mapping& mapping)
{
    ordered_json object{{"comfortics", kKind}, {"version", kVersion}};
    if (!mapping.name.empty())
        object["name"] = mapping.name;
    object["fingerprint"] = mapping.fingerprint;
    if (!mapping.guessedFingerprint.empty())
        object["guessed fingerprint"] = mapping.guessedFingerprint;
    if (ordered_json shape = shapeJson(mapping.shape); !shape.empty())
        object["file"] = std::move(shape);
    object["order"] = orderName(mapping.order);
    if (mapping.zone)
        object["zone"] = zoneText(*mapping.zone);
    if (!mapping.gaps.empty())
        object["gaps"] = mapping.gaps;
    if (!mapping.doubts.empty())
        object["doubts"] = mapping.doubts;
    ordered_json& columns = object["columns"] = ordered_json::array();
    for (const ColumnUse& use : mapping.columns)
        columns.push_back(columnJson(use));
    return object.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

MappingRead readMapping(std::string_view text)
{
    if (text.size() > kLargestMapping)
        return {std::nullopt, "it is larger than any mapping"};
    try {
        const ordered_json::parser_callback_t shallow = [](int depth, ordered_json::parse_event_t,
                                                           ordered_json&) {
            if (depth > kDeepest)
                throw Damage("it is no mapping of a table");
            return true;
        };
        return {readWhole(ordered_json::parse(text, shallow)), {}};
    } catch (const ordered_json::exception&) {
        return {std::nullopt, "it is damaged: it is no JSON"};
    } catch (const Damage& damage) {
        return {std::nullopt, std::string("it is damaged: ") + damage.what()};
    }
}

} // namespace comfortics::tables
