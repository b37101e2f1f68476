// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/model_options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>
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
    m_person.addPicksTo(command);
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
    addPicked(request);
    return request;
}

// Rates are converted by the body that all rows share, never by start values: a column may give another.
void ModelOptions::addPicked(batch::ModelRequest& request) const
{
    const auto given = [constants = request.constants](std::string_view id) {
        const auto found =
            std::ranges::find(constants, id, [](const auto& constant) { return constant.first->id; });
        return found == constants.end() ? standards::kNaN : found->second;
    };
    for (const catalogue::Addition* model : request.models)
        for (const PersonOptions::Told& told : m_person.toldTo(*model, given)) {
            if (!std::isnan(given(told.input->id)))
                throw std::invalid_argument(told.option + " and --with both give " +
                                            std::string(told.input->id));
            if (std::ranges::find(request.constants, std::pair(told.input, told.value)) ==
                request.constants.end())
                request.constants.emplace_back(told.input, told.value);
        }
}

bool ModelOptions::isRead(std::string_view input, const std::vector<const catalogue::Addition*>& models) const
{
    return std::ranges::any_of(models, [&](const catalogue::Addition* model) {
        return model->inputPlace(input).has_value() || m_person.convertsBy(*model, input);
    });
}

std::string ModelOptions::fault() const
{
    if (m_models.empty())
        return m_person.any() ? "What is told of a person wants --models." : "";
    std::string clause;
    try {
        const batch::ModelRequest asked = request();
        for (const auto& [input, value] : asked.constants)
            if (!isRead(input->id, asked.models))
                clause = "--with: none of the models reads " + std::string(input->id);
        std::vector<std::string> unread = m_person.unreadBy(*asked.models.front());
        for (const catalogue::Addition* model : asked.models)
            std::erase_if(unread, [others = m_person.unreadBy(*model)](const std::string& option) {
                return std::ranges::find(others, option) == others.end();
            });
        if (!unread.empty())
            clause = unread.front() + ": none of the models reads it";
    } catch (const std::invalid_argument& error) {
        clause = error.what();
    }
    return clause.empty() ? clause : clause + ".";
}

} // namespace comfortics::cli
