#include "app/shortOutcomes.h"

#include <QFontMetrics>
#include <QStringList>

#include <algorithm>

namespace {

using Outcome = SessionState::Outcome;

const QString ellipsis = QStringLiteral("\u2026");
constexpr int leastOfTitle = 5; // characters

/// All of the outcomes, with their titles cut to what their ends leave; empty if that is nothing.
QString withCutTitles(const std::vector<Outcome> &outcomes, const QString &rest,
                      const QFontMetrics &metrics, int width)
{
    const auto joined = [&](const QStringList &titles) {
        QStringList texts;
        for (int i = 0; i < titles.size(); ++i)
            texts << Outcome{titles[i], outcomes[size_t(i)].end, false}.text();
        return texts.join(SessionState::separator()) + rest;
    };
    QStringList bare;
    for (const Outcome &outcome : outcomes)
        bare << (outcome.title.isEmpty() ? QString() : ellipsis);
    const int ellipsisWidth = metrics.horizontalAdvance(ellipsis);
    int room = width - metrics.horizontalAdvance(joined(bare));
    QStringList shown;
    int titles = int(outcomes.size());
    for (const Outcome &outcome : outcomes) {
        const QString title =
            metrics.elidedText(outcome.title, Qt::ElideRight, room / titles-- + ellipsisWidth);
        if (room < 0 || (title != outcome.title && title.size() <= leastOfTitle))
            return {};
        room -= std::max(0, metrics.horizontalAdvance(title) - ellipsisWidth);
        shown << title;
    }
    return joined(shown);
}

} // namespace

QString shortOutcomes(std::vector<Outcome> outcomes, const QFontMetrics &metrics, int width)
{
    if (outcomes.empty())
        return {};
    if (outcomes.size() > 1 && outcomes.back().done)
        outcomes.pop_back();
    QString rest;
    for (;; outcomes.pop_back(), rest = SessionState::separator() + ellipsis) {
        QString text = withCutTitles(outcomes, rest, metrics, width);
        if (!text.isEmpty())
            return text;
        if (outcomes.size() == 1)
            return metrics.elidedText(outcomes.front().end, Qt::ElideRight, width);
    }
}
