#pragma once

#include "redirector/RemotePlace.h"
#include "redirector/SmbSettings.h"
#include "smb/SmbMessages.h"

#include <memory>

namespace netrove {

/// A place that is asked over SMB.
class SmbPlace : public RemotePlace {
public:
    /// `request` names the computer, the share and what is below it; its kind doesn't matter.
    SmbPlace(std::shared_ptr<const SmbSettings> settings, SmbRequest request)
        : settings_(std::move(settings)), request_(std::move(request)) {}

    [[nodiscard]] std::unique_ptr<CopySource> OpenFile(OwnConnections& connections,
                                                       const std::stop_token& stop) const override;
    [[nodiscard]] QString Trouble(OwnConnections& connections,
                                  const std::stop_token& stop) const override;
    [[nodiscard]] LogonResult TryLogon(const StoredLogon& logon,
                                       const std::stop_token& stop) const override;

private:
    [[nodiscard]] SmbRequest Request(SmbRequest::Kind kind) const;

    std::shared_ptr<const SmbSettings> settings_;
    SmbRequest request_;
};

} // namespace netrove
