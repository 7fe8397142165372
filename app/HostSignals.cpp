#include "HostSignals.h"

#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "records/SCfg_Item.h"

namespace {

template <class Signal>
std::function<void(SCfg_Item*)> later(HostSignals* self, Signal signal)
{
    return [self, signal](SCfg_Item* item) {
        if (!item)
            return;
        QMetaObject::invokeMethod(
            self,
            [self, signal, kind = int(item->m_eType), guid = item->m_qsGUID] {
                emit(self->*signal)(kind, guid);
            },
            Qt::QueuedConnection);
    };
}

} // namespace

HostSignals::HostSignals(QObject* parent)
    : QObject(parent)
{
    MVThemeItemSubwdgt_Preview::setCbBtnDownload(later(this, &HostSignals::downloadStarted));
    MVThemeItemWdg::setCbItemDownloaded(later(this, &HostSignals::downloadEnded));
    MVThemeItemWdg::setCbItemEnded([this](SCfg_Item* item, const SItemDownloadResult& result) {
        if (result.m_eEnd != eItemDownload_Failed)
            return;
        const auto send = [this, kind = int(item->m_eType), guid = item->m_qsGUID,
                           failure = result.m_failure] {
            emit downloadFailed(kind, guid, failure);
        };
        QMetaObject::invokeMethod(this, send, Qt::QueuedConnection);
    });
    MVThemeItemSubwdgt_Preview::setCbBtnMore([this](SCfg_Item*) {
        QMetaObject::invokeMethod(
            this, [this] { emit moreWanted(); }, Qt::QueuedConnection);
    });
}

HostSignals::~HostSignals()
{
    MVThemeItemSubwdgt_Preview::setCbBtnDownload({});
    MVThemeItemSubwdgt_Preview::setCbBtnMore({});
    MVThemeItemWdg::setCbItemDownloaded({});
    MVThemeItemWdg::setCbItemEnded({});
}
