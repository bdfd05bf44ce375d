#pragma once

#include "platform/uikit/table/TableRows.h"
#include "platform/uikit/table/UITableViewDelegate.h"

#include <memory>
#include <optional>
#include <utility>

/// Asks a table's data source and delegate. What it asks may do anything: reload the table, change or drop the data
/// source or the delegate. An answer that a reload has outdated meanwhile is dropped: the asker gets none. Owned by the
/// table, which is kept alive by whoever asks.
class TableSource {
public:
    explicit TableSource(UITableView& table) : m_table(table) {}

    [[nodiscard]] std::shared_ptr<UITableViewDataSource> dataSource() const { return m_dataSource.lock(); }
    void setDataSource(std::weak_ptr<UITableViewDataSource> dataSource) { m_dataSource = std::move(dataSource); }
    [[nodiscard]] std::shared_ptr<UITableViewDelegate> delegate() const { return m_delegate.lock(); }
    void setDelegate(std::weak_ptr<UITableViewDelegate> delegate) { m_delegate = std::move(delegate); }

    /// The rows are counted again when they are next asked for.
    void reload();
    /// Whether rows stand in the table that nobody can show any more.
    [[nodiscard]] bool isAbandoned() const;
    /// The same until a reload; none for what a callback asks while they are counted.
    [[nodiscard]] std::shared_ptr<TableRows> rows();

    /// In points; negative for a row that knows its height itself.
    [[nodiscard]] std::optional<CGFloat> heightOfRow(NSIndexPath path);
    /// A row's cell, or a header's view, which may be null; footers have none.
    [[nodiscard]] std::optional<std::shared_ptr<UIView>> viewOf(NSIndexPath path);

private:
    template <class Ask>
    [[nodiscard]] auto unlessOutdated(Ask ask) -> std::optional<decltype(ask())>;
    [[nodiscard]] bool countInto(TableRows& rows);
    [[nodiscard]] Pixels estimate() const;
    [[nodiscard]] std::shared_ptr<UITableViewDelegate> delegateOrDefaults() const;

    UITableView& m_table;
    std::weak_ptr<UITableViewDataSource> m_dataSource;
    std::weak_ptr<UITableViewDelegate> m_delegate;
    std::shared_ptr<TableRows> m_rows;     // null from a reload to the next question
    std::optional<Pixels> m_averageHeight; // of the rows before the last reload
    int m_reloads = 0;
    bool m_counting = false;
};
