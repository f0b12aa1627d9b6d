#include "tests/revenue/StripeHistory.h"

namespace glimmet::StripeHistory {
namespace {

constexpr qint64 newest = 1795000000; // seconds since 1970
constexpr qint64 hour = 3600;

qint64 cents(int charge)
{
    return 100 + qint64(charge) * 7919 % 99'900;
}

QByteArray status(int charge)
{
    return charge % 17 == 3 ? "failed" : charge % 29 == 5 ? "pending" : "succeeded";
}

QByteArray currency(int charge)
{
    return charge % 11 == 7 ? "eur" : "usd";
}

QByteArray name(int charge)
{
    return "ch_3PNk" + QByteArray::number(charge).rightJustified(17, '0');
}

const QByteArray &form()
{
    static const QByteArray text =
        R"({"id":"%id","object":"charge","amount":%amount,"amount_captured":%amount,
"amount_refunded":0,"application":null,"application_fee":null,"application_fee_amount":null,
"balance_transaction":"txn_3PNkXyLkdIwHu7ix0lQ2VdRe","billing_details":{"address":{"city":"Zürich",
"country":"CH","line1":"Langstrasse 12","line2":null,"postal_code":"8004","state":null},
"email":"jenny.rosen@example.com","name":"Jenny Rosen 🎈","phone":null,"tax_id":null},
"calculated_statement_descriptor":"EXAMPLE.COM","captured":true,"created":%created,"currency":"%currency",
"customer":"cus_QDaBCdEfGhIjKl","description":"Subscription update","destination":null,"dispute":null,
"disputed":false,"failure_balance_transaction":null,"failure_code":null,"failure_message":null,
"fraud_details":{},"invoice":"in_1PNkXwLkdIwHu7ixQm4Vb1aP","livemode":true,"metadata":{"plan":"pro",
"seats":"3"},"on_behalf_of":null,"order":null,"outcome":{"network_status":"approved_by_network",
"reason":null,"risk_level":"normal","risk_score":32,"seller_message":"Payment complete.",
"type":"authorized"},"paid":true,"payment_intent":"pi_3PNkXyLkdIwHu7ix0zTnM8aB",
"payment_method":"pm_1PNkXvLkdIwHu7ixcZ7fW2sD","payment_method_details":{"card":{"amount_authorized":%amount,
"authorization_code":null,"brand":"visa","checks":{"address_line1_check":"pass",
"address_postal_code_check":"pass","cvc_check":"pass"},"country":"US","exp_month":8,"exp_year":2028,
"extended_authorization":{"status":"disabled"},"fingerprint":"mToisGZ01V71BCos","funding":"credit",
"incremental_authorization":{"status":"unavailable"},"installments":null,"last4":"4242","mandate":null,
"multicapture":{"status":"unavailable"},"network":"visa","network_token":{"used":false},
"network_transaction_id":"101091510150131","overcapture":{"maximum_amount_capturable":%amount,
"status":"unavailable"},"regulated_status":"unregulated","three_d_secure":null,"wallet":null},
"type":"card"},"receipt_email":"jenny.rosen@example.com","receipt_number":null,
"receipt_url":"https://pay.stripe.com/receipts/payment/CAcaFwoVYWNjdF8xTTJKVGtMa2RJd0h1N2l4KJ2B",
"refunded":false,"review":null,"shipping":null,"source":null,"source_transfer":null,
"statement_descriptor":null,"statement_descriptor_suffix":null,"status":"%status","transfer_data":null,
"transfer_group":null})";
    return text;
}

QByteArray charge(int number)
{
    QByteArray text = form();
    text.replace("%id", name(number)).replace("%amount", QByteArray::number(cents(number)));
    text.replace("%created", QByteArray::number(newest - number * hour));
    return text.replace("%currency", currency(number)).replace("%status", status(number));
}

} // namespace

QByteArray page(int number, int pages)
{
    QByteArray charges;
    for (int i = number * chargesPerPage; i < (number + 1) * chargesPerPage; ++i)
        charges += (charges.isEmpty() ? "" : ",") + charge(i);
    const QByteArray more = number + 1 < pages ? "true" : "false";
    return R"({"object":"list","data":[)" + charges + R"(],"has_more":)" + more + R"(,"url":"/v1/charges"})";
}

bool counts(int charge)
{
    return status(charge) == "succeeded" && currency(charge) == "usd";
}

qint64 countedCents(int charge)
{
    return counts(charge) ? cents(charge) : 0;
}

int pageAsked(const QByteArray &target)
{
    const qsizetype digits = 17;
    return target.contains("starting_after=") ? (target.right(digits).toInt() + 1) / chargesPerPage : 0;
}

} // namespace glimmet::StripeHistory
