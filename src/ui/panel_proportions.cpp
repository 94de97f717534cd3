#include "ui/panel_proportions.h"

#include <QEvent>
#include <QSplitter>
#include <array>

#include "tools/panel_proportion.h"

namespace tessarin {
namespace {

using ShareOf = std::optional<std::int32_t> MainWindowSection::*;

struct PanelBar {
    const char* key;
    ShareOf share;
};

constexpr std::array<PanelBar, 3> kPanelBars = {{
    {"SizeBarV", &MainWindowSection::SizeBarV},
    {"SizeBarVText", &MainWindowSection::SizeBarVText},
    {"SizeBarVImage", &MainWindowSection::SizeBarVImage},
}};

int Whole(const QSplitter& splitter) {
    int whole = 0;
    for (const int size : splitter.sizes())
        whole += size;
    return whole;
}

// Holds one splitter's share: taken from the bar when the user moves it, given back to the
// panels whenever the splitter changes size.
class SplitterShare : public QObject {
    Q_OBJECT
  public:
    SplitterShare(QSplitter& splitter, std::optional<std::int32_t> stored)
        : QObject(&splitter), splitter_(splitter), share_(stored) {
        setObjectName(QStringLiteral("SplitterShare"));
        splitter.installEventFilter(this);
        connect(&splitter, &QSplitter::splitterMoved, this,
                [this] { share_ = ProportionOf(splitter_.sizes().value(0), Whole(splitter_)); });
        Apply();
    }

    std::optional<std::int32_t> Share() const {
        if (share_) return share_;
        return ProportionOf(splitter_.sizes().value(0), Whole(splitter_));
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &splitter_ && event->type() == QEvent::Resize) Apply();
        return false;
    }

  private:
    void Apply() {
        if (splitter_.count() != 2) return;
        const int handles = splitter_.handleWidth();
        const int whole =
            (splitter_.orientation() == Qt::Horizontal ? splitter_.width() : splitter_.height()) -
            handles;
        if (const auto sizes = SizesForProportion(share_, whole))
            splitter_.setSizes({sizes->first, sizes->second});
    }

    QSplitter& splitter_;
    std::optional<std::int32_t> share_;
};

}  // namespace

void KeepPanelProportions(QWidget& window, const MainWindowSection& stored, const QString& barTip) {
    for (const PanelBar& bar : kPanelBars) {
        auto* splitter = window.findChild<QSplitter*>(QLatin1String(bar.key));
        if (splitter == nullptr) continue;
        new SplitterShare(*splitter, stored.*bar.share);
        for (int handle = 1; handle < splitter->count(); ++handle)
            splitter->handle(handle)->setToolTip(barTip);
    }
}

void StorePanelProportions(const QWidget& window, MainWindowSection& section) {
    for (const PanelBar& bar : kPanelBars) {
        const auto* splitter = window.findChild<QSplitter*>(QLatin1String(bar.key));
        const auto* share = splitter ? splitter->findChild<SplitterShare*>() : nullptr;
        if (share != nullptr) section.*bar.share = share->Share();
    }
}

}  // namespace tessarin

#include "panel_proportions.moc"
