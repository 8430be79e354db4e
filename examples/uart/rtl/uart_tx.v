// Sends one byte: a start bit, DATA_BITS data bits with the lowest first, and a stop bit.
module uart_tx #(
    parameter CLOCKS_PER_BIT = 434,
    parameter DATA_BITS = 8
) (
    input  wire                 clk,
    input  wire                 rst_n,
    input  wire                 valid,
    input  wire [DATA_BITS-1:0] data,
    output wire                 ready,
    output reg                  txd
);
    reg [DATA_BITS:0] shift;
    reg [3:0]         bits_left;
    reg [15:0]        clocks_left;

    assign ready = bits_left == 0;

    always @(posedge clk or negedge rst_n)
        if (!rst_n) begin
            shift       <= {(DATA_BITS + 1){1'b1}};
            bits_left   <= 0;
            clocks_left <= 0;
            txd         <= 1'b1;
        end else if (ready) begin
            txd <= 1'b1;
            if (valid) begin
                shift       <= {1'b1, data};
                bits_left   <= DATA_BITS + 2;
                clocks_left <= CLOCKS_PER_BIT - 1;
                txd         <= 1'b0;
            end
        end else if (clocks_left != 0) begin
            clocks_left <= clocks_left - 1;
        end else begin
            txd         <= shift[0];
            shift       <= {1'b1, shift[DATA_BITS:1]};
            bits_left   <= bits_left - 1;
            clocks_left <= CLOCKS_PER_BIT - 1;
        end
endmodule
