target_sources(PeerTests PRIVATE
    Peers/KTPhoneNumberFormatterPeerTests.cpp
)
