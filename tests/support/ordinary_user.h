// Tests of what the system refuses must not run as the one user to whom it refuses nothing.
#pragma once
#ifndef _WIN32

#    include <gtest/gtest.h>

#    include <unistd.h>

#    include "support/temp_dir.h"

// Gives the folder to an ordinary user and acts as that user, if need be, for its own lifetime.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const support::Text& folder) : isRoot_(::geteuid() == 0)
    {
        constexpr uid_t ordinary = 65534;
        if (isRoot_) {
            EXPECT_EQ(::chown(support::hostPath(folder).c_str(), ordinary, ordinary), 0);
            EXPECT_EQ(::seteuid(ordinary), 0);
        }
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser()
    {
        if (isRoot_) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }

private:
    bool isRoot_;
};

#endif
