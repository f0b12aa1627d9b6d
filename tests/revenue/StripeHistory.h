#pragma once

#include <QByteArray>

namespace glimmet {

/// The charges of an account over years, a hundred a page, as the platform sends them. Every charge has its
/// number from 0 on; what counts in US dollars can be told from that.
namespace StripeHistory {

constexpr int chargesPerPage = 100;

/// A page's body, at its real size.
QByteArray page(int number, int pages);
/// What the charge adds to the sum, in cents; nothing where it does not count.
qint64 countedCents(int charge);
bool counts(int charge);
/// The page that a request asks for.
int pageAsked(const QByteArray &target);

} // namespace StripeHistory
} // namespace glimmet
