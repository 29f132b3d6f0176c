#pragma once

#include "fakes/Text.h"
#include "smb/SambaServer.h"

#include <gtest/gtest.h>

#include <vector>

namespace netrove {

/// Tests that share one server; they are skipped where none can be started.
class SambaTest : public testing::Test {
protected:
    static void SetUpTestSuite() { samba_ = std::make_unique<SambaServer>(); }
    static void TearDownTestSuite() { samba_.reset(); }

    void SetUp() override {
        if (!SambaServer::IsAvailable())
            GTEST_SKIP() << "Samba needs to be installed and the user to be root";
        ASSERT_TRUE(samba_->IsRunning());
    }

    /// The server as the computer FILER, at a proxy's port.
    static std::vector<SmbHost> FilerAt(quint16 port) {
        SmbHost host = samba_->Host();
        host.port = port;
        return {host};
    }

    static inline std::unique_ptr<SambaServer> samba_;
};

} // namespace netrove
