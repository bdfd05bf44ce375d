// The same screen in Qt Widgets, as somebody would write it there: a list view with a delegate that paints rows, over
// the toolkit's offscreen platform. It goes through the session of the other two and prints the same figures.
//
// bench-qtwidgets BUNDLE [--bare] [PICTURE.png | --load]      --bare: nothing lies over the list, as the toolkit likes
// it

#include "bench/Session.h"

#include <QtWidgets>

#include <array>
#include <cmath>
#include <cstdio>
#include <memory>
#include <thread>

namespace {

// Lengths of the screen in points, as the interface files have them.
constexpr QSize screenSize(393, 852);
constexpr int scale = 3;
constexpr int margin = 16;
constexpr int boxWidth = 393 - 2 * margin;
constexpr QRect boxPlace(margin, 57, boxWidth, 52);
constexpr int listTop = 113;
constexpr int insetTop = 10;
constexpr int barTop = 786;
constexpr QRect buttonPlace(margin, 8, boxWidth, 50);
constexpr int headerHeight = 30;
constexpr int footerHeight = 20;
constexpr int cardMargin = 5;
constexpr int cardRadius = 14;
constexpr int cardPadding = 10;
constexpr int iconSize = 44;
constexpr int arrowSize = 24;
constexpr int textLeft = 12 + iconSize + 12;
constexpr int textWidth = boxWidth - textLeft - 8 - arrowSize - 12;
constexpr int textGap = 3;

constexpr QRgb background = 0xFFE3F0EB;
constexpr QRgb green = 0xFF2A7460;
constexpr QRgb selectedGreen = 0xFF4DA289;
constexpr QRgb headerColor = 0xFF1E4D40;
constexpr QRgb textColor = 0xFF16302A;
constexpr QRgb greyColor = 0xFF56655F;
constexpr QRgb quietFill = 0xFFD2E6DD;

struct Item {
    QString icon;
    QString title;
    QString subtitle;
    bool isSelected = false;
};

struct Section {
    QString title;
    std::vector<Item> items;
};

using Group = std::vector<Section>;

constexpr std::array groupNames{"Adult (18+)",       "Friends",         "Couple",       "Family",
                                "Spin The Bottle",   "Is It Cheating?", "Pickup Lines", "Put A Finger Down",
                                "Who’s Most Likely", "Dating",          "Ice Breaker"};
using Content = std::array<Group, groupNames.size()>;

QColor faded(QRgb color, double alpha) {
    QColor result(color);
    result.setAlphaF(static_cast<float>(alpha));
    return result;
}

Group readGroup(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s cannot be read", qPrintable(path));
    }
    Group group;
    for (const QJsonValue entry : QJsonDocument::fromJson(file.readAll()).array()) {
        Section& section = group.emplace_back();
        section.title = entry["sectionTitle"].toString();
        for (const QJsonValue item : entry["items"].toArray()) {
            section.items.push_back({item["icon"].toString(), item["title"].toString(), item["subtitle"].toString(),
                                     item["isSelected"].toBool()});
        }
    }
    return group;
}

Content readContent(const QString& bundle) {
    Content content;
    for (std::size_t i = 0; i < content.size(); ++i) {
        content[i] = readGroup(bundle + '/' + QString::fromUtf8(groupNames[i]) + ".json");
    }
    return content;
}

QFont interFont(int points, QFont::Weight weight) {
    QFont result("Inter");
    result.setPixelSize(points);
    result.setWeight(weight);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

/// The pictures of the bundle's catalogue.
class Pictures {
public:
    explicit Pictures(QString bundle) : m_bundle(std::move(bundle)) {}
    const QPixmap& named(const QString& name) {
        QPixmap& picture = m_known[name];
        if (picture.isNull()) {
            picture = QPixmap(m_bundle + "/Assets.xcassets/" + name + ".imageset/" + name + "@3x.png");
            picture.setDevicePixelRatio(scale);
        }
        return picture;
    }

private:
    QString m_bundle;
    QHash<QString, QPixmap> m_known;
};

/// Every section's header, its rows and the gap below them, one after another.
class Rows : public QAbstractListModel {
public:
    struct Row {
        const Section* header; // null for a row and for a gap
        const Item* item;      // null for a header and for a gap
        int height;            // 0: as the texts need
    };

    void show(const Group& group) {
        beginResetModel();
        m_rows = {{nullptr, nullptr, insetTop}};
        for (const Section& section : group) {
            m_rows.push_back({&section, nullptr, headerHeight});
            for (const Item& item : section.items) {
                m_rows.push_back({nullptr, &item, 0});
            }
            m_rows.push_back({nullptr, nullptr, footerHeight});
        }
        endResetModel();
    }
    [[nodiscard]] const Row& at(const QModelIndex& index) const {
        return m_rows[static_cast<std::size_t>(index.row())];
    }
    [[nodiscard]] int rowCount(const QModelIndex& /*parent*/) const override { return static_cast<int>(m_rows.size()); }
    [[nodiscard]] QVariant data(const QModelIndex& /*index*/, int /*role*/) const override { return {}; }

private:
    std::vector<Row> m_rows;
};

class RowPainter : public QStyledItemDelegate {
public:
    RowPainter(const Rows& rows, Pictures& pictures) : m_rows(rows), m_pictures(pictures) {}

    /// How many rows have been painted since the process began.
    [[nodiscard]] int painted() const { return m_painted; }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override {
        const Rows::Row& row = m_rows.at(index);
        if (row.item == nullptr) {
            return {screenSize.width(), row.height};
        }
        const double texts = m_titleMetrics.height() + textGap + subtitleHeight(row.item->subtitle);
        const int card = std::max(iconSize + 24, static_cast<int>(std::ceil(texts)) + 2 * cardPadding);
        return {screenSize.width(), card + 2 * cardMargin};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        ++m_painted;
        const Rows::Row& row = m_rows.at(index);
        painter->setRenderHint(QPainter::Antialiasing);
        if (row.item != nullptr) {
            paintCard(*painter, option.rect.adjusted(margin, cardMargin, -margin, -cardMargin), *row.item);
        } else if (row.header != nullptr) {
            paintHeader(*painter, option.rect.adjusted(margin, 0, -margin, 0), row.header->title);
        }
    }

private:
    [[nodiscard]] double subtitleHeight(const QString& text) const {
        return m_subtitleMetrics.boundingRect(QRectF(0, 0, textWidth, 10000), Qt::TextWordWrap, text).height();
    }

    void paintHeader(QPainter& painter, const QRect& place, const QString& title) const {
        painter.setFont(m_headerFont);
        painter.setPen(QColor(headerColor));
        painter.drawText(place, Qt::AlignVCenter, title);
        const double ruleLeft = place.left() + QFontMetricsF(m_headerFont).horizontalAdvance(title) + 10;
        painter.fillRect(QRectF(ruleLeft, place.top() + 15, place.right() + 1 - ruleLeft, 1), faded(headerColor, 0.22));
    }

    void paintCard(QPainter& painter, const QRect& card, const Item& item) const {
        painter.setPen(Qt::NoPen);
        painter.setBrush(item.isSelected ? QColor(selectedGreen) : QColor(Qt::white));
        painter.drawRoundedRect(card, cardRadius, cardRadius);
        painter.drawPixmap(QPointF(card.left() + 12, card.top() + (card.height() - iconSize) / 2.0),
                           m_pictures.named(item.icon));
        painter.drawPixmap(QPointF(card.right() + 1 - 12 - arrowSize, card.top() + (card.height() - arrowSize) / 2.0),
                           m_pictures.named("list_arrow"));
        const double titleHeight = m_titleMetrics.height();
        const double texts = titleHeight + textGap + subtitleHeight(item.subtitle);
        const double top = card.top() + (card.height() - texts) / 2;
        painter.setFont(m_titleFont);
        painter.setPen(item.isSelected ? QColor(Qt::white) : QColor(textColor));
        painter.drawText(QRectF(card.left() + textLeft, top, textWidth, titleHeight), 0, item.title);
        painter.setFont(m_subtitleFont);
        painter.setPen(item.isSelected ? QColor(Qt::white) : QColor(greyColor));
        painter.drawText(QRectF(card.left() + textLeft, top + titleHeight + textGap, textWidth, texts),
                         Qt::TextWordWrap, item.subtitle);
    }

    const Rows& m_rows;
    Pictures& m_pictures;
    QFont m_headerFont = interFont(22, QFont::Normal);
    QFont m_titleFont = interFont(17, QFont::DemiBold);
    QFont m_subtitleFont = interFont(15, QFont::Normal);
    QFontMetricsF m_titleMetrics{m_titleFont};
    QFontMetricsF m_subtitleMetrics{m_subtitleFont};
    mutable int m_painted = 0;
};

/// The title and the box with the group's name.
class Header : public QWidget {
public:
    Header(QWidget* parent, Pictures& pictures) : QWidget(parent), m_pictures(pictures) {
        setGeometry(0, 0, screenSize.width(), listTop);
    }
    void show(const QString& group) {
        m_group = group;
        update();
    }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), QColor(background));
        painter.setFont(interFont(26, QFont::Bold));
        painter.setPen(QColor(headerColor));
        painter.drawText(QRectF(margin, 59 / 3.0, boxWidth, 95 / 3.0), 0, "Truths & Dares");
        painter.setPen(Qt::NoPen);
        painter.setBrush(faded(qRgb(0, 0, 0), 0.3));
        painter.drawRoundedRect(boxPlace.translated(0, 3), 12, 12);
        painter.setBrush(QColor(green));
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRoundedRect(QRectF(boxPlace).adjusted(0.5, 0.5, -0.5, -0.5), 11.5, 11.5);
        painter.setFont(interFont(17, QFont::DemiBold));
        painter.drawText(boxPlace.adjusted(16, 0, 0, 0), Qt::AlignVCenter, m_group);
        painter.drawPixmap(boxPlace.right() + 1 - 16 - arrowSize, boxPlace.top() + (boxPlace.height() - arrowSize) / 2,
                           m_pictures.named("drowdown_down"));
    }

    Pictures& m_pictures;
    QString m_group;
};

/// What fades the list's upper end, in six steps of the ground's colour. It lies over the list.
class SoftEdge : public QWidget {
public:
    explicit SoftEdge(QWidget* parent) : QWidget(parent) { setGeometry(0, listTop, screenSize.width(), 12); }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        int top = 0;
        for (const double alpha : {0.92, 0.80, 0.66, 0.50, 0.34, 0.18}) {
            painter.fillRect(0, top, width(), 2, faded(background, alpha));
            top += 2;
        }
    }
};

class BottomBar : public QWidget {
public:
    explicit BottomBar(QWidget* parent) : QWidget(parent) {
        setGeometry(0, barTop, screenSize.width(), screenSize.height() - barTop);
    }

private:
    void paintEvent(QPaintEvent* /*event*/) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), QColor(background));
        painter.fillRect(0, 0, width(), 1, faded(headerColor, 0.16));
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(quietFill));
        painter.drawRoundedRect(buttonPlace, 14, 14);
        painter.setFont(interFont(17, QFont::DemiBold));
        painter.setPen(QColor(headerColor));
        painter.drawText(buttonPlace, Qt::AlignCenter, "Who's Playing?");
    }
};

/// The whole screen in a window of its own.
class Screen : public QWidget {
public:
    Screen(const QString& bundle, bool isBare) : m_pictures(bundle) {
        resize(screenSize);
        m_list.setGeometry(0, listTop, screenSize.width(), barTop - listTop);
        m_list.setFrameShape(QFrame::NoFrame);
        m_list.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
        m_list.setSelectionMode(QAbstractItemView::NoSelection);
        QPalette palette;
        palette.setColor(QPalette::Base, QColor(background));
        m_list.setPalette(palette);
        m_list.setModel(&m_rows);
        m_list.setItemDelegate(&m_painter);
        m_edge.setVisible(!isBare);
    }

    void showGroup(const char* name, const Group& group) {
        m_header.show(QString::fromUtf8(name));
        m_rows.show(group);
    }
    /// Delivers what is waiting, until rows have been painted.
    void paintRows() {
        const int before = m_painter.painted();
        while (m_painter.painted() == before) {
            QCoreApplication::processEvents();
        }
    }
    /// One frame down, or up; false at the end of the content.
    bool scrollBy(int distance) {
        QScrollBar& bar = *m_list.verticalScrollBar();
        const int wanted = bar.value() + distance;
        bar.setValue(wanted);
        QCoreApplication::processEvents();
        return bar.value() == wanted;
    }
    void paintAll() {
        update();
        m_list.viewport()->update();
        paintRows();
    }

private:
    Pictures m_pictures;
    Rows m_rows;
    RowPainter m_painter{m_rows, m_pictures};
    Header m_header{this, m_pictures};
    QListView m_list{this};
    SoftEdge m_edge{this};
    BottomBar m_bar{this};
};

std::vector<double> scroll(Screen& screen) {
    std::vector<double> times;
    int distance = 20;
    for (int step = 0; step < bench::scrollSteps; ++step) {
        bool atEnd = false;
        times.push_back(bench::milliseconds([&] { atEnd = !screen.scrollBy(distance); }));
        distance = atEnd ? -distance : distance;
    }
    return times;
}

std::vector<double> repaint(Screen& screen) {
    std::vector<double> times;
    for (int i = 0; i < bench::repaints; ++i) {
        times.push_back(bench::milliseconds([&] { screen.paintAll(); }));
    }
    return times;
}

std::vector<double> choose(Screen& screen, const Content& content) {
    std::vector<double> times;
    for (const std::size_t group : {1U, 2U, 3U}) {
        times.push_back(bench::milliseconds([&] {
            screen.showGroup(groupNames[group], content[group]);
            screen.paintRows();
        }));
    }
    return times;
}

int measureLoad(const QString& bundle) {
    Content content;
    bench::Figures figures;
    figures.add("load_ms", bench::milliseconds([&] { content = readContent(bundle); }));
    figures.print();
    return 0;
}

int measure(int argc, char** argv, const QString& bundle, const QStringList& options) {
    Content content;
    std::thread loader([&] { content = readContent(bundle); });
    const QApplication application(argc, argv);
    Screen screen(bundle, options.contains("--bare"));
    loader.join();
    screen.showGroup(groupNames[0], content[0]);
    screen.show();
    screen.paintRows();
    bench::Figures figures;
    figures.add("start_ms", bench::millisecondsSinceStart());
    figures.add("memory_at_start_mb", bench::peakMegabytes());
    if (!options.isEmpty() && options.back().endsWith(".png") && !screen.grab().save(options.back())) {
        std::fprintf(stderr, "bench-qtwidgets: %s cannot be written\n", qPrintable(options.back()));
        return 1;
    }
    figures.addSamples("scroll_ms", scroll(screen));
    figures.add("repaint_ms", bench::median(repaint(screen)));
    figures.add("choose_ms", bench::median(choose(screen, content)));
    figures.add("memory_mb", bench::peakMegabytes());
    figures.print();
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: bench-qtwidgets BUNDLE [--bare] [PICTURE.png | --load]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "default.warning=false"); // of a folder that only a desktop session has
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
    const QString bundle = QString::fromUtf8(argv[1]);
    QStringList options;
    for (int i = 2; i < argc; ++i) {
        options.push_back(QString::fromUtf8(argv[i]));
    }
    return options.contains("--load") ? measureLoad(bundle) : measure(argc, argv, bundle, options);
}
