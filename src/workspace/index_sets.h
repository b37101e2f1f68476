// SPDX-License-Identifier: GPL-3.0-or-later
//
// "My indices": the sets of indices that the cards show, ready ones and the user's own.
#pragma once

#include "controls/controls.h"
#include "workspace/item.h"
#include "workspace/preferences.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

struct IndexSet {
    std::string name;
    std::string purpose;          ///< whom it is for, in a clause; empty for an own set
    std::vector<std::string> ids; ///< in the order of the cards; may hold ids of other versions
    bool own = false;
};

/// Ready sets, which stay as they are, then the user's own in the order in which they were made; one of them
/// is shown. Each change is kept at once.
///
/// What a star adds goes to one own set: the shown one, else the one shown last, else a new one.
class IndexSets {
public:
    /// The preferences must outlive the sets. What they hold that makes no sense counts as nothing.
    explicit IndexSets(Preferences& preferences);
    IndexSets(const IndexSets&) = delete;
    IndexSets& operator=(const IndexSets&) = delete;

    const std::vector<IndexSet>& all() const noexcept { return m_sets; }
    std::size_t shownPlace() const noexcept { return m_shown; }
    const IndexSet& shown() const { return m_sets[m_shown]; }
    /// What it holds, in the order of the cards; ids of other versions are left out.
    std::vector<Item> shownItems() const;
    /// Throws std::out_of_range where there is no such set.
    void show(std::size_t place);
    /// A name that no set has leaves the shown one.
    void show(std::string_view name);

    /// Why a set cannot have a name, in one sentence; empty where it can. Names differ in more than upper and
    /// lower case. `of` is the set that is to be renamed.
    std::string whyNot(std::string_view name, std::optional<std::size_t> of = std::nullopt) const;

    // Own sets. What cannot be done changes nothing and returns false: a name that whyNot() refuses, or a
    // ready set.

    /// Shows the new set.
    bool create(std::string_view name, std::vector<std::string> ids = {});
    bool rename(std::size_t place, std::string_view name);
    bool remove(std::size_t place);
    /// Moves an id of the shown set before the one at `to`, counted without it; the end at most.
    bool moveShown(std::string_view id, std::size_t to);

    /// The name of the set that stars go to, be it there or not yet.
    const std::string& starredName() const;
    bool isStarred(std::string_view id) const;
    /// Adds the id to the end of that set, or takes it out.
    void setStarred(std::string_view id, bool starred);

    /// The own sets as JSON: [{"name": ..., "ids": [...]}, ...]; empty where there are none.
    std::string ownAsJson() const;
    /// Whether a text is such.
    static bool isJson(std::string_view json);
    /// Takes sets of another session: one whose name an own set has replaces it, the others are added. A
    /// damaged text changes nothing.
    void take(std::string_view json);

    /// The sets, or which is shown, have changed.
    controls::Event changed;

private:
    std::optional<std::size_t> placeOf(std::string_view name) const;
    bool isOwn(std::size_t place) const { return place < m_sets.size() && m_sets[place].own; }
    void keepAndTell();

    Preferences& m_preferences;
    std::vector<IndexSet> m_sets;
    std::size_t m_shown = 0;
    std::string m_starred; ///< name of the own set that stars go to; may be one to come
};

} // namespace comfortics::workspace
