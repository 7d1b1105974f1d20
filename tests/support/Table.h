// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

#include <tuple>

namespace vexa::test {

/// The columns of a data-driven test, which are named once, where the test takes its row apart:
///
///     using Sliders = Table<int, QPoint>;
///     void slidersMove_data() {
///         Sliders::begin({{"light", 2, {66, 471}}});
///     }
///     void slidersMove() {
///         const auto [id, place] = Sliders::row();
///
/// Rows that are worked out are added by QTest::newRow after a begin() without any.
template<typename... Types> class Table {
public:
    static void begin() { addColumns(std::index_sequence_for<Types...>()); }
    static void begin(std::initializer_list<std::tuple<const char *, Types...>> rows) {
        begin();
        for (const auto &row : rows)
            std::apply([](const char *name, const Types &...cells) { (QTest::newRow(name) << ... << cells); },
                       row);
    }
    static std::tuple<Types...> row() { return cells(std::index_sequence_for<Types...>()); }

private:
    static constexpr const char *columns[] = {"0", "1", "2", "3", "4", "5", "6", "7"};

    template<std::size_t... Index> static void addColumns(std::index_sequence<Index...> /*indices*/) {
        (QTest::addColumn<Types>(columns[Index]), ...);
    }
    template<std::size_t... Index>
    static std::tuple<Types...> cells(std::index_sequence<Index...> /*indices*/) {
        return {*static_cast<Types *>(QTest::qData(columns[Index], qMetaTypeId<Types>()))...};
    }
};

} // namespace vexa::test
