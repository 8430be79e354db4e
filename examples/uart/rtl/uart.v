// A serial port: sender and receiver of one clock domain.
module uart #(
    parameter CLOCK_HZ = 50000000,
    parameter BAUD_RATE = 115200,
    parameter DATA_BITS = 8
) (
    input  wire                 clk,
    input  wire                 rst_n,
    input  wire                 tx_valid,
    input  wire [DATA_BITS-1:0] tx_data,
    output wire                 tx_ready,
    output wire                 rx_valid,
    output wire [DATA_BITS-1:0] rx_data,
    input  wire                 rxd,
    output wire                 txd
);
    localparam CLOCKS_PER_BIT = CLOCK_HZ / BAUD_RATE;

    uart_tx #(.CLOCKS_PER_BIT(CLOCKS_PER_BIT), .DATA_BITS(DATA_BITS)) sender (
        .clk(clk), .rst_n(rst_n), .valid(tx_valid), .data(tx_data), .ready(tx_ready), .txd(txd)
    );

    uart_rx #(.CLOCKS_PER_BIT(CLOCKS_PER_BIT), .DATA_BITS(DATA_BITS)) receiver (
        .clk(clk), .rst_n(rst_n), .rxd(rxd), .valid(rx_valid), .data(rx_data)
    );
endmodule
