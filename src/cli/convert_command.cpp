// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/text_table.h"
#include "converter/conversions.h"
#include "texts/number_text.h"
#include "values/run_failure.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <string>

namespace comfortics::cli {

namespace {

using converter::Conversion;

int usage(const std::string& sentence)
{
    std::cerr << "comfortics-cli: " << sentence << "\n";
    return kUsage;
}

class ConvertCommand final : public Command {
public:
    CLI::App* addTo(CLI::App& tool) override
    {
        CLI::App* const command =
            tool.add_subcommand("convert", "Convert a value into the unit of the readings");
        command->add_option("value", m_value, "The value, for instance 212 or -40.5")->type_name("VALUE");
        command->add_option("unit", m_unit, "Its unit, for instance F, km/h or kcal/h/m2")->type_name("UNIT");
        command->add_flag("--list", m_list, "Show the units");
        command->footer("Temperatures become °C, air velocities m/s, radiation W/m².\n"
                        "Example: comfortics-cli convert 212 F");
        return command;
    }

    int run() override
    {
        if (m_list) {
            print(units());
            return kDone;
        }
        if (m_value.empty() || m_unit.empty())
            return usage("convert needs a VALUE and a UNIT, or --list.");
        const auto value = texts::numericValue(m_value);
        if (!value)
            return usage("\"" + m_value + "\" is no number.");
        const Conversion* const conversion = converter::findConversion(m_unit);
        if (!conversion)
            return usage("There is no unit \"" + m_unit + "\" (comfortics-cli convert --list shows all).");
        try {
            print(converter::converted(*conversion, *value) + " " +
                  std::string(converter::panelInfo(conversion->panel).unit) + "\n");
        } catch (const values::RunFailure& failure) {
            std::cerr << "comfortics-cli: " << m_value << " " << m_unit
                      << " cannot be converted: " << failure.why() << ".\n";
            return kRunFailed;
        }
        return kDone;
    }

private:
    static std::string units()
    {
        using enum TextTable::Align;
        TextTable table({"Unit", "Name", "Quantity", "Becomes"}, {Left, Left, Left, Left});
        for (const Conversion& conversion : converter::kConversions) {
            const converter::PanelInfo& panel = converter::panelInfo(conversion.panel);
            table.add({std::string(conversion.name), converter::unitText(conversion),
                       std::string(panel.caption), std::string(panel.unit)});
        }
        return table.text();
    }

    std::string m_value;
    std::string m_unit;
    bool m_list = false;
};

} // namespace

std::unique_ptr<Command> makeConvertCommand()
{
    return std::make_unique<ConvertCommand>();
}

} // namespace comfortics::cli
