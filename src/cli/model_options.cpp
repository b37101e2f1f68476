// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/model_options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <stdexcept>

namespace comfortics::cli {

namespace {

/// What an argument is refused with; empty where it is not.
template <typename Parse>
std::string sentenceOf(Parse parse)
{
    try {
        parse();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return {};
}

} // namespace

void ModelOptions::addTo(CLI::App& command, const std::string& shared)
{
    command
        .add_option(
            "--models", m_models,
            "Calculate models of standards too, for instance pmv_iso,utci (see comfortics-cli model --list)")
        ->type_name("LIST")
        ->group("Models")
        ->check([](const std::string& list) {
            return sentenceOf([&list] { batch::ModelRequest::parseModels(list); });
        });
    command.add_option("--with", m_with, shared + ", for instance met=1.2,posture=sitting")
        ->type_name("LIST")
        ->group("Models")
        ->needs("--models")
        ->check([](const std::string& list) {
            return sentenceOf([&list] { batch::ModelRequest::parseConstants(list); });
        });
    command
        .add_option("--model-limits", m_limits, "Values beyond the range of a model: mark, or blank for none")
        ->check(CLI::IsMember({"mark", "blank"}))
        ->capture_default_str()
        ->group("Models");
}

batch::ModelRequest ModelOptions::request() const
{
    batch::ModelRequest request;
    if (!m_models.empty())
        request.models = batch::ModelRequest::parseModels(m_models);
    if (!m_with.empty())
        request.constants = batch::ModelRequest::parseConstants(m_with);
    if (m_limits == "blank")
        request.limits = standards::Limits::Blank;
    return request;
}

std::string ModelOptions::fault() const
{
    const batch::ModelRequest asked = request();
    for (const auto& [input, value] : asked.constants)
        if (std::ranges::none_of(asked.models, [id = input->id](const catalogue::Addition* model) {
                return model->inputPlace(id).has_value();
            }))
            return "--with: none of the models reads " + std::string(input->id) + ".";
    return {};
}

} // namespace comfortics::cli
